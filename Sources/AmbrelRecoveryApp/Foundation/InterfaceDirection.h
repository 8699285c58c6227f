#pragma once

#include <QtCore/qnamespace.h>

/// The layout direction of the screens, which is that of the language of their texts. Any thread.
Qt::LayoutDirection interfaceDirection();
