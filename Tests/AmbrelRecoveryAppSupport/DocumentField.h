#pragma once

#include <string>
#include <string_view>
#include <vector>

/// One key of an engine document and what it must hold. A plain value.
struct DocumentField {
    enum class Kind { text, optionalText, boolean, signedInteger, unsignedInteger, object, objects, texts };

    /// The object that holds the key, as DocumentText names it.
    std::string_view level;
    std::string_view key;
    Kind kind;

    /// Every key of an inspection and of an export, at every level.
    static std::vector<DocumentField> inspection();
    static std::vector<DocumentField> exported();

    /// Texts of JSON values, and of what is none, that the key must not hold.
    std::vector<std::string> refusedValues() const;
    /// And those that it may hold.
    std::vector<std::string> acceptedValues() const;
};
