#pragma once

#include <QString>

/// The direction of a paragraph of the interface. A text without any letter from right to left is not in the language
/// of an interface that runs so: it stands in for one that is missing.
Qt::LayoutDirection paragraphDirection(const QString& text, Qt::LayoutDirection interfaceDirection);
