#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// The text of a valid engine document, whose keys and values a test can exchange one by one. Its objects are called
/// "document", "branch", "snapshot", "counts" and "evidence". A plain value.
class DocumentText {
public:
    /// With one branch and one snapshot; every number in it is another one.
    static DocumentText inspection();
    static DocumentText exported();

    /// The same document with another value, without a key, or with a further key at the front or the back of the
    /// object.
    DocumentText with(std::string_view level, std::string_view key, std::string_view value) const;
    DocumentText without(std::string_view level, std::string_view key) const;
    DocumentText withFirst(std::string_view level, std::string_view key, std::string_view value) const;
    DocumentText withLast(std::string_view level, std::string_view key, std::string_view value) const;

    /// The same document with the keys of every object in the opposite order.
    DocumentText reversed() const;

    std::string text() const;

private:
    /// A value may name a level behind an "@", whose object stands in its place.
    using Members = std::vector<std::pair<std::string, std::string>>;
    struct Level {
        std::string name;
        Members members;
    };

    Members& members(std::string_view level);
    std::string text(std::string_view level) const;

    std::vector<Level> levels_;
};
