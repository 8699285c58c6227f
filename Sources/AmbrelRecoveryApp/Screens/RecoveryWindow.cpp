#include "AmbrelRecoveryApp/Screens/RecoveryWindow.h"

#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/SymbolPainter.h"
#include "AmbrelRecoveryApp/Screens/RecoveryAccessibility.h"

#include <QGuiApplication>
#include <QIcon>
#include <QPainter>
#include <QPixmap>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

#include <memory>

namespace {

constexpr QSize initialSize(980, 720);
constexpr QSize smallestSize(880, 660);

/// The application's symbol on its accent color.
QPixmap drawnIcon(int size) {
    constexpr qreal cornerShare = 0.25;
    constexpr qreal symbolShare = 0.75;
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(RecoveryPalette::copper());
    painter.drawRoundedRect(pixmap.rect(), size * cornerShare, size * cornerShare);
    QRectF symbol(0, 0, size * symbolShare, size * symbolShare);
    symbol.moveCenter(QRectF(pixmap.rect()).center());
    SymbolPainter::paint(painter, RecoverySymbol::photoStackFill, symbol, RecoveryPalette::onCopper());
    return pixmap;
}

/// In every size that desktops usually request.
QIcon icon() {
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128}) {
        icon.addPixmap(drawnIcon(size));
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
