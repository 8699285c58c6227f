#pragma once

#include <QColor>
#include <QPalette>

/// The application's fixed colors, all sRGB. The desktop's colors are ignored: the window is always dark.
namespace RecoveryPalette {

QColor background();
QColor rail();
QColor card();
/// The fill of cards and rows: `card` on a shade of the background that is dark enough for muted text, whatever lies
/// behind.
QColor panel();
/// The fill of the selected row of the snapshots.
QColor chosenRow();
/// The fill of the selected row of a file panel while its list has the focus; translucent.
QColor chosenItem();
QColor input();
/// Main text.
QColor primary();
/// Secondary text.
QColor secondary();
QColor muted();
/// The accent color.
QColor copper();
/// Borders; bright if contrast is increased.
QColor line();
/// Borders of controls that have one only if contrast is increased; otherwise transparent.
QColor outline();
QColor success();
QColor warning();
/// Text and symbols on copper: dark, because white would have too little contrast.
QColor onCopper();
/// Text and symbols on translucent copper over a dark background.
QColor onDimmedCopper();
/// The fill of a secondary button.
QColor raised();
/// The fill of a selected segment, and the track of a progress bar.
QColor highlight();
/// The slider of a scroll bar.
QColor scrollBar(bool isLit);
/// The fill of the error alert.
QColor alert();

/// Returns the opaque color that results from `color` on the opaque `ground`.
QColor blended(const QColor& color, const QColor& ground);

/// Returns `color` with its opacity multiplied by `factor`, 0 to 1.
QColor withOpacity(QColor color, double factor);

/// Sets whether contrast is increased; initially it is not. Affects everything painted afterwards. Main thread.
void setContrastIncreased(bool isIncreased);
bool isContrastIncreased();

/// The palette for the parts of a window that Qt draws itself, whatever the desktop's colors are.
QPalette ofToolkit();

/// The style sheet for a widget with a tooltip; the tooltip inherits it.
QString toolTipStyleSheet();

/// The opacity of a disabled control.
inline constexpr double disabledOpacity = 0.42;

} // namespace RecoveryPalette
