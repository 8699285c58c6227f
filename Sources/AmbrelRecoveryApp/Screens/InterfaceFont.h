#pragma once

#include "AmbrelLocalization/AmbrelInterfaceLanguage.h"

#include <QStringList>

/// The families from which the interface is drawn in a language, the first one that has a character first. `language`
/// is not `system`. Any thread.
QStringList interfaceFontFamilies(const QString& familyOfTheDesktop, AmbrelInterfaceLanguage language);

/// Gives the application's font the family that stands in for it where it lacks the script of the interface's language:
/// of one Han character, Chinese, Japanese and Korean readers expect different forms. A font of the desktop that has
/// the script keeps it, and a family that is not installed changes nothing. Widgets follow with the next events. Main
/// thread, with an application object.
void applyInterfaceFont();
