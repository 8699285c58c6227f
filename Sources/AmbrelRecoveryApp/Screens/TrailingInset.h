#pragma once

class QHBoxLayout;
class QWidget;

/// The place of the snapshot list's scroll bar: the list reaches into it, everything above and below stops before it,
/// so that cards and rows end on one line.
QHBoxLayout* withTrailingInset(QWidget* widget);
