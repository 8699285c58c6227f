#pragma once

#include <QColor>
#include <QPalette>

/// The application's fixed colours, all sRGB, and the measures that its screens share. The desktop's own colours play
/// no part: the window is dark everywhere.
namespace RecoveryPalette {

QColor background();
QColor rail();
QColor card();
QColor input();
/// Main text.
QColor primary();
/// Secondary text.
QColor secondary();
QColor muted();
/// The accent.
QColor copper();
/// Borders.
QColor line();
QColor success();
QColor warning();
/// Text and symbols on copper.
QColor onCopper();
/// The fill of a secondary button.
QColor raised();
/// The fill of a chosen segment, and the track of a progress bar.
QColor highlight();
/// The fill of the error alert.
QColor alert();

/// `color` with its opacity multiplied by `factor`, 0 to 1.
QColor withOpacity(QColor color, double factor);

/// For the toolkit's own parts of a window, whatever the desktop's colours are.
QPalette ofToolkit();

/// For a widget with a tooltip, which takes the style of the widget that it explains.
QString toolTipStyleSheet();

/// The opacity of a control that cannot be used.
inline constexpr double disabledOpacity = 0.42;

} // namespace RecoveryPalette
