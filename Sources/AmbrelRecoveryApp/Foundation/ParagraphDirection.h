#pragma once

#include <QString>

/// Returns the direction of a paragraph of the interface: `interfaceDirection`, or left-to-right if `text` has no
/// right-to-left letter. In a right-to-left interface, such a text is the fallback for a missing translation. Any
/// thread.
Qt::LayoutDirection paragraphDirection(const QString& text, Qt::LayoutDirection interfaceDirection);
