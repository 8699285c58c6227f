#pragma once

#include <QtCore/qnamespace.h>

/// The direction in which the screens are laid out: that of the language in which their texts are shown. Any thread.
Qt::LayoutDirection interfaceDirection();
