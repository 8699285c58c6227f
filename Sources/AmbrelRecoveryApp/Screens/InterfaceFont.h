#pragma once

#include "AmbrelLocalization/AmbrelInterfaceLanguage.h"

#include <QStringList>

/// Returns the font families for the interface in `language`, in order of preference. `language` is not `system`. Any
/// thread.
QStringList interfaceFontFamilies(const QString& familyOfTheDesktop, AmbrelInterfaceLanguage language);

/// Adds to the application's font the fallback family for the interface language: Chinese, Japanese and Korean readers
/// expect different forms of the same Han character. If the desktop's own font has the script, that font is used for
/// it; a family that is not installed has no effect. Widgets are updated with the next events. Main thread; requires
/// the application object.
void applyInterfaceFont();
