#pragma once

#include <QString>
#include <unicode/locid.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>

/// A language of the interface, or `system`: the language requested by the operating system.
/// A value that is compared and hashed by its identifier. May be used on any thread; nothing throws.
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

    // Shorthands for the languages, such as `AmbrelInterfaceLanguage::german`.
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

    /// Returns the language whose raw value is exactly `rawValue` (case-sensitive), or std::nullopt.
    static std::optional<AmbrelInterfaceLanguage> fromRawValue(QStringView rawValue);

    /// Returns the language of a stored choice, or `system` if nothing is stored or the text is not a raw value.
    static AmbrelInterfaceLanguage fromStoredValue(const std::optional<QString>& storedValue);

    /// "system", or the language's tag, such as "pt-BR".
    QString rawValue() const;

    /// Same as `rawValue()`: the identity for lists and pickers.
    QString id() const { return rawValue(); }

    /// The language's tag, or std::nullopt for `system`.
    std::optional<QString> localeIdentifier() const;

    /// The language in which texts are shown. For `system`, this is the catalogue's best match for the operating
    /// system's preferred languages, determined at each call. Never `system`.
    AmbrelInterfaceLanguage shown() const;

    /// The language's locale. For `system`, this is the locale of the shown language in the region that the operating
    /// system is set to, determined at each call: "de_GB" is German with British date conventions.
    icu::Locale locale() const;

    bool isRightToLeft() const { return value_ == Case::arabic; }

    /// The language's name in itself, never translated; "System" for `system`.
    QString autonym() const;

    /// The enumerator, for use in a `switch`.
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
