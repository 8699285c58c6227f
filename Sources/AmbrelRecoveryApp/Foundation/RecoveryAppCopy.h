#pragma once

#include <QString>
#include <unicode/locid.h>

/// The few texts that only this application uses, in every language of the interface; English if a language has no row.
/// Callers pass the locale of the interface language, so that the texts follow the user's choice. Any thread; nothing
/// throws.
namespace RecoveryAppCopy {

/// The row for a locale: "zh-Hant" or "zh-Hans" if its identifier contains such a script, otherwise its language code,
/// or "en" if it has none.
QString languageIdentifier(const icu::Locale& locale);

/// A badge: no account is needed to open a backup.
QString noAccount(const icu::Locale& locale);

/// A badge: the backup is opened without being changed.
QString readOnly(const icu::Locale& locale);

/// The only button of the error alert.
QString okay(const icu::Locale& locale);

/// The heading while a package is downloaded.
QString providerPreparationTitle(const icu::Locale& locale);

/// What the user should know while a package is downloaded.
QString providerPreparation(const icu::Locale& locale);

/// The button that reveals the recovered folder.
QString showInFinder(const icu::Locale& locale);

/// Shown in the field for the secret while Caps Lock is on.
QString capsLock(const icu::Locale& locale);

/// Read out by screen readers for a completed step.
QString stepCompleted(const icu::Locale& locale);

/// Shown on the package card before a package is chosen.
QString chooseOrDrop(const icu::Locale& locale);

/// Shown instead of the snapshots if a backup contains none.
QString noSnapshots(const icu::Locale& locale);

} // namespace RecoveryAppCopy
