#pragma once

#include <QString>
#include <unicode/locid.h>

/// The few texts that only this application has, in every language of the interface; English where a language has no
/// row. Callers pass the locale of the interface language, so that the texts follow what the user picked. Any thread;
/// nothing throws.
namespace RecoveryAppCopy {

/// The row that a locale takes: "zh-Hant" or "zh-Hans" wherever its identifier names such a script, else its language
/// code, "en" where it has none.
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

/// Stands in the field for the secret while Caps Lock is on.
QString capsLock(const icu::Locale& locale);

/// What screen readers say of a step that lies behind the user.
QString stepCompleted(const icu::Locale& locale);

/// Stands on the card of the package before there is one.
QString chooseOrDrop(const icu::Locale& locale);

/// Stands in the place of the snapshots where a backup holds none.
QString noSnapshots(const icu::Locale& locale);

} // namespace RecoveryAppCopy
