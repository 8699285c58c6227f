#pragma once

#include <QString>

/// The layout direction of the screens, which is that of the language of their texts. Any thread.
Qt::LayoutDirection interfaceDirection();

/// Returns the direction of a paragraph of the interface: `interfaceDirection`, or left-to-right if `text` has no
/// right-to-left letter. In a right-to-left interface, such a text is the fallback for a missing translation. Any
/// thread.
Qt::LayoutDirection paragraphDirection(const QString& text, Qt::LayoutDirection interfaceDirection);
