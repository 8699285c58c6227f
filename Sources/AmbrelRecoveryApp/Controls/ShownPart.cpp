#include "AmbrelRecoveryApp/Controls/ShownPart.h"

#include <QWidget>

void ShownPart::setShown(QWidget* part, bool isShown) {
    part->setEnabled(isShown);
    part->setVisible(isShown);
}
