#pragma once

#include "SystemLanguages.h"

#include <QtGlobal>

#include <string>

/// Walks through every state of the screens at the smallest size of the window, with texts enlarged by `scale`, and
/// fails for each text that is not shown whole. Gives every text that was shown, one a line.
std::string expectWholeTexts(const SystemLanguage& language, qreal scale = 1);
