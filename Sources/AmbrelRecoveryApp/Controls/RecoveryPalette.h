#pragma once

#include <QColor>
#include <QPalette>

/// The application's fixed colours, all sRGB, and the measures that its screens share. The desktop's own colours play
/// no part: the window is dark everywhere.
namespace RecoveryPalette {

QColor background();
QColor rail();
QColor card();
/// What cards and rows are filled with: `card` on a shade of the background that is dark enough for muted text,
/// whatever lies behind.
QColor panel();
/// What the chosen row of the snapshots is filled with.
QColor chosenRow();
/// What the chosen row of a file panel is filled with while its list has the keyboard, on whatever lies behind.
QColor chosenItem();
QColor input();
/// Main text.
QColor primary();
/// Secondary text.
QColor secondary();
QColor muted();
/// The accent.
QColor copper();
/// Borders. Bright where more contrast is wanted.
QColor line();
/// Borders of controls that have one only where more contrast is wanted; invisible otherwise.
QColor outline();
QColor success();
QColor warning();
/// Text and symbols on copper: dark, since white would not stand out enough.
QColor onCopper();
/// Text and symbols on copper that lets a dark ground shine through.
QColor onDimmedCopper();
/// The fill of a secondary button.
QColor raised();
/// The fill of a chosen segment, and the track of a progress bar.
QColor highlight();
/// The slider of a scroll bar.
QColor scrollBar(bool isLit);
/// The fill of the error alert.
QColor alert();

/// The opaque colour that is seen where `color` lies on the opaque `ground`.
QColor blended(const QColor& color, const QColor& ground);

/// `color` with its opacity multiplied by `factor`, 0 to 1.
QColor withOpacity(QColor color, double factor);

/// Whether the desktop wants borders that stand out, which it does not at first. What is painted from then on follows.
void setContrastIncreased(bool isIncreased);
bool isContrastIncreased();

/// For the toolkit's own parts of a window, whatever the desktop's colours are.
QPalette ofToolkit();

/// For a widget with a tooltip, which takes the style of the widget that it explains.
QString toolTipStyleSheet();

/// The opacity of a control that cannot be used.
inline constexpr double disabledOpacity = 0.42;

} // namespace RecoveryPalette
