#include "AmbrelRecoveryApp/FilePanels/PanelItemView.h"

#include "AmbrelRecoveryApp/Controls/QuietScrollBar.h"

#include <QAbstractItemView>

void PanelItemView::prepare(QAbstractItemView& view) {
    view.setFrameShape(QFrame::NoFrame);
    view.setSelectionMode(QAbstractItemView::SingleSelection);
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view.setDragDropMode(QAbstractItemView::NoDragDrop);
    view.setContextMenuPolicy(Qt::PreventContextMenu);
    view.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    view.setVerticalScrollBar(new QuietScrollBar(&view));
    view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}
