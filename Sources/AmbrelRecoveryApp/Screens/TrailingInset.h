#pragma once

class QHBoxLayout;
class QWidget;

/// Returns a row with `widget` and space for the snapshot list's scroll bar. The list extends into that space, but
/// everything above and below ends before it, so that cards and rows end on one line.
QHBoxLayout* withTrailingInset(QWidget* widget);
