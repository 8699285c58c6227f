#include "AmbrelRecoveryApp/RecoveryWindow.h"

#include <QScreen>
#include <QVBoxLayout>

namespace {

constexpr QSize initialSize(980, 720);
constexpr QSize smallestSize(880, 660);

} // namespace

RecoveryWindow::RecoveryWindow() {
    setWindowTitle(QStringLiteral("Ambrel Recovery"));
    setMinimumSize(smallestSize);
    resize(initialSize);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
}

void RecoveryWindow::setContent(QWidget* content) {
    layout()->addWidget(content);
}

void RecoveryWindow::center() {
    QRect place(QPoint(0, 0), size());
    place.moveCenter(screen()->availableGeometry().center());
    move(place.topLeft());
}
