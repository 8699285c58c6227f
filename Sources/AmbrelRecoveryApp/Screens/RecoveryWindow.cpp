#include "AmbrelRecoveryApp/Screens/RecoveryWindow.h"

#include "AmbrelRecoveryApp/Screens/RecoveryAccessibility.h"
#include "AmbrelRecoveryApp/Screens/RecoveryIcon.h"

#include <QGuiApplication>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

#include <memory>

namespace {

constexpr QSize initialSize(980, 720);
constexpr QSize smallestSize(880, 660);

} // namespace

RecoveryWindow::RecoveryWindow() {
    // Some versions of Qt choose the accessible interface of the window when the title is set.
    RecoveryAccessibility::install();
    setWindowTitle(QStringLiteral("Ambrel Recovery"));
    setMinimumSize(smallestSize);
    resize(initialSize);
    setWindowIcon(RecoveryIcon::icon());
    // Some desktops use this name to find the desktop entry of a window, if one is installed, and with it the icon.
    QGuiApplication::setDesktopFileName(QStringLiteral("com.ambrel.recovery"));
    // Spelled out, because Qt's standard shortcuts for them have no keys on some desktops.
    for (const Qt::Key key : {Qt::Key_Q, Qt::Key_W}) {
        new QShortcut(Qt::CTRL | key, this, this, &QWidget::close);
    }
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
}

void RecoveryWindow::setContent(QWidget* content) {
    if (const std::unique_ptr<QLayoutItem> shown(layout()->takeAt(0)); shown) {
        delete shown->widget();
    }
    layout()->addWidget(content);
}

void RecoveryWindow::center() {
    QRect place(QPoint(0, 0), size());
    place.moveCenter(screen()->availableGeometry().center());
    move(place.topLeft());
}
