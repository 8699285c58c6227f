#pragma once

#include <string_view>

/// One entry of the catalogue: the key under which every language's table holds the text.
/// A cheap value that refers to a key of static storage; no text of any language is in it. May be used on any thread.
class LocalizedStringResource {
public:
    /// `key` is ASCII and must outlive the entry; the catalogue's keys are literals.
    constexpr explicit LocalizedStringResource(std::string_view key) : key_(key) {}

    constexpr std::string_view key() const { return key_; }

    /// What is shown where no table has the key: the key itself.
    constexpr std::string_view defaultValue() const { return key_; }

    friend constexpr bool operator==(const LocalizedStringResource&, const LocalizedStringResource&) = default;

private:
    std::string_view key_;
};
