#pragma once

#include "AmbrelLocalization/AmbrelInterfaceLanguage.h"

/// The language in which the texts of the interface are shown, never `system`. Any thread.
AmbrelInterfaceLanguage shownInterfaceLanguage();
