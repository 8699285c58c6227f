#pragma once

#include <QString>
#include <unicode/locid.h>

#include <cstddef>

/// The texts that only this application uses, in every language of the interface; English for any other language. Any
/// thread; nothing throws.
namespace RecoveryAppCopy {

/// In the order of RecoveryAppCopyTexts.inc.
enum class Text {
    noAccount,
    readOnly,
    okay,
    providerPreparationTitle,
    providerPreparation,
    showInFinder,
    /// Shown in the field for the secret while Caps Lock is on.
    capsLock,
    /// Read out by screen readers for a completed step.
    stepCompleted,
    /// Shown on the package card before a package is chosen.
    chooseOrDrop,
    /// Shown instead of the snapshots if a backup contains none.
    noSnapshots,

    // The texts of the file panels.
    locations,
    home,
    computer,
    enclosingFolder,
    dateModified,
    create,
    nameIsTaken,
    folderNotCreated,
    folderCannotBeOpened,
    loading,
    cut,
    copy,
    paste,
    selectAll,
};

inline constexpr std::size_t textCount = static_cast<std::size_t>(Text::selectAll) + 1;

/// The language of a locale: "zh-Hant" or "zh-Hans" if its identifier contains such a script, otherwise its language
/// code, or "en" if it has none.
QString languageIdentifier(const icu::Locale& locale);

/// The text in the language of `locale`.
QString text(Text text, const icu::Locale& locale);

/// The text in the interface language, which may change between two calls.
QString localized(Text text);

/// A badge: no account is needed to open a backup.
inline QString noAccount(const icu::Locale& locale) {
    return text(Text::noAccount, locale);
}

/// A badge: the backup is opened without being changed.
inline QString readOnly(const icu::Locale& locale) {
    return text(Text::readOnly, locale);
}

/// The only button of the error alert.
inline QString okay(const icu::Locale& locale) {
    return text(Text::okay, locale);
}

/// The heading while a package is downloaded.
inline QString providerPreparationTitle(const icu::Locale& locale) {
    return text(Text::providerPreparationTitle, locale);
}

/// What the user should know while a package is downloaded.
inline QString providerPreparation(const icu::Locale& locale) {
    return text(Text::providerPreparation, locale);
}

/// The button that reveals the recovered folder.
inline QString showInFinder(const icu::Locale& locale) {
    return text(Text::showInFinder, locale);
}

} // namespace RecoveryAppCopy
