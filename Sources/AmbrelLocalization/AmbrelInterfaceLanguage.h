#pragma once

#include <QString>
#include <unicode/locid.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>

/// A language in which the interface can be shown, or `system`: the one that the operating system asks for.
/// A value that compares and hashes by its identifier. May be used on any thread; nothing throws.
class AmbrelInterfaceLanguage {
public:
    enum class Case : std::uint8_t {
        system,
        english,
        spanish,
        brazilianPortuguese,
        german,
        french,
        italian,
        japanese,
        korean,
        russian,
        polish,
        turkish,
        arabic,
        simplifiedChinese,
        traditionalChinese,
    };

    // The languages themselves, so that `AmbrelInterfaceLanguage::german` is one.
    static const AmbrelInterfaceLanguage system;
    static const AmbrelInterfaceLanguage english;
    static const AmbrelInterfaceLanguage spanish;
    static const AmbrelInterfaceLanguage brazilianPortuguese;
    static const AmbrelInterfaceLanguage german;
    static const AmbrelInterfaceLanguage french;
    static const AmbrelInterfaceLanguage italian;
    static const AmbrelInterfaceLanguage japanese;
    static const AmbrelInterfaceLanguage korean;
    static const AmbrelInterfaceLanguage russian;
    static const AmbrelInterfaceLanguage polish;
    static const AmbrelInterfaceLanguage turkish;
    static const AmbrelInterfaceLanguage arabic;
    static const AmbrelInterfaceLanguage simplifiedChinese;
    static const AmbrelInterfaceLanguage traditionalChinese;

    constexpr explicit AmbrelInterfaceLanguage(Case value) : value_(value) {}

    /// The language whose raw value is exactly `rawValue` (case-sensitive), or none.
    static std::optional<AmbrelInterfaceLanguage> fromRawValue(QStringView rawValue);

    /// The language of a stored choice: `system` where nothing is stored or where the text is no raw value.
    static AmbrelInterfaceLanguage fromStoredValue(const std::optional<QString>& storedValue);

    /// "system", or the language's tag, such as "pt-BR".
    QString rawValue() const;

    /// The same text as `rawValue()`: the identity for lists and pickers.
    QString id() const { return rawValue(); }

    /// The language's tag, or none for `system`.
    std::optional<QString> localeIdentifier() const;

    /// The language in which texts are shown: itself; for `system` the catalogue's language for the languages that the
    /// operating system prefers, read afresh. Never `system`.
    AmbrelInterfaceLanguage shown() const;

    /// The language's locale; for `system` that of the language shown, with the region whose conventions the operating
    /// system is set to: German dates in the British way are "de_GB". Read afresh.
    icu::Locale locale() const;

    bool isRightToLeft() const { return value_ == Case::arabic; }

    /// The language's name in itself, never translated; "System" for `system`.
    QString autonym() const;

    /// The case itself, for a `switch`.
    constexpr Case value() const { return value_; }

    /// `system` and the 14 languages, in declaration order.
    static std::span<const AmbrelInterfaceLanguage> allCases();

    /// The 14 languages, in declaration order.
    static std::span<const AmbrelInterfaceLanguage> selectableLanguages();

    friend constexpr bool operator==(AmbrelInterfaceLanguage, AmbrelInterfaceLanguage) = default;

private:
    Case value_;
};

inline constexpr AmbrelInterfaceLanguage AmbrelInterfaceLanguage::system(Case::system);
inline constexpr AmbrelInterfaceLanguage AmbrelInterfaceLanguage::english(Case::english);
inline constexpr AmbrelInterfaceLanguage AmbrelInterfaceLanguage::spanish(Case::spanish);
inline constexpr AmbrelInterfaceLanguage AmbrelInterfaceLanguage::brazilianPortuguese(Case::brazilianPortuguese);
inline constexpr AmbrelInterfaceLanguage AmbrelInterfaceLanguage::german(Case::german);
inline constexpr AmbrelInterfaceLanguage AmbrelInterfaceLanguage::french(Case::french);
inline constexpr AmbrelInterfaceLanguage AmbrelInterfaceLanguage::italian(Case::italian);
inline constexpr AmbrelInterfaceLanguage AmbrelInterfaceLanguage::japanese(Case::japanese);
inline constexpr AmbrelInterfaceLanguage AmbrelInterfaceLanguage::korean(Case::korean);
inline constexpr AmbrelInterfaceLanguage AmbrelInterfaceLanguage::russian(Case::russian);
inline constexpr AmbrelInterfaceLanguage AmbrelInterfaceLanguage::polish(Case::polish);
inline constexpr AmbrelInterfaceLanguage AmbrelInterfaceLanguage::turkish(Case::turkish);
inline constexpr AmbrelInterfaceLanguage AmbrelInterfaceLanguage::arabic(Case::arabic);
inline constexpr AmbrelInterfaceLanguage AmbrelInterfaceLanguage::simplifiedChinese(Case::simplifiedChinese);
inline constexpr AmbrelInterfaceLanguage AmbrelInterfaceLanguage::traditionalChinese(Case::traditionalChinese);

template<>
struct std::hash<AmbrelInterfaceLanguage> {
    std::size_t operator()(AmbrelInterfaceLanguage language) const noexcept {
        return static_cast<std::size_t>(language.value());
    }
};
