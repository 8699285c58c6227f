#include "AmbrelRecoveryApp/Screens/TrailingInset.h"

#include "AmbrelRecoveryApp/Controls/QuietScrollBar.h"

#include <QHBoxLayout>

QHBoxLayout* withTrailingInset(QWidget* widget) {
    auto* const row = new QHBoxLayout;
    row->setSpacing(0);
    row->addWidget(widget);
    // A spacer changes sides with the direction of the interface; a margin would not.
    row->addSpacing(QuietScrollBar::thickness);
    return row;
}
