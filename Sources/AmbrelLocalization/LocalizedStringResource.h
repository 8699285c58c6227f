#pragma once

#include <string_view>

/// An entry of the catalogue: the key of a text in every language's table. A cheap value that refers to a key with
/// static storage duration; it contains no text. May be used on any thread.
class LocalizedStringResource {
public:
    /// `key` is ASCII and must outlive the entry; the catalogue's keys are string literals.
    constexpr explicit LocalizedStringResource(std::string_view key) : key_(key) {}

    constexpr std::string_view key() const { return key_; }

    /// The text shown if no table has the key: the key itself.
    constexpr std::string_view defaultValue() const { return key_; }

    friend constexpr bool operator==(const LocalizedStringResource&, const LocalizedStringResource&) = default;

private:
    std::string_view key_;
};
