#include "AmbrelRecoveryApp/Screens/RecoveryWindow.h"

#include "AmbrelRecoveryApp/Screens/RecoveryAccessibility.h"

#include <QGuiApplication>
#include <QIcon>
#include <QPainter>
#include <QPixmap>
#include <QScreen>
#include <QShortcut>
#include <QSvgRenderer>
#include <QVBoxLayout>

#include <memory>

// Not in a namespace, because the macro declares a function that the resource compiler generates.
static void loadIcon() {
    Q_INIT_RESOURCE(Icon);
}

namespace {

constexpr QSize initialSize(980, 720);
constexpr QSize smallestSize(880, 660);

QPixmap drawnIcon(QSvgRenderer& source, int size) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    source.render(&painter);
    return pixmap;
}

/// In every size that desktops usually request.
QIcon icon() {
    loadIcon();
    QSvgRenderer source(QStringLiteral(":/icon/com.ambrel.recovery.svg"));
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128}) {
        icon.addPixmap(drawnIcon(source, size));
    }
    return icon;
}

} // namespace

RecoveryWindow::RecoveryWindow() {
    // Some versions of Qt choose the accessible interface of the window when the title is set.
    RecoveryAccessibility::install();
    setWindowTitle(QStringLiteral("Ambrel Recovery"));
    setMinimumSize(smallestSize);
    resize(initialSize);
    setWindowIcon(icon());
    // Desktops find the desktop entry of the window by this name, and with it the icon. Packaging installs it.
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
