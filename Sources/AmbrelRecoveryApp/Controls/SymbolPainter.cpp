#include "AmbrelRecoveryApp/Controls/SymbolPainter.h"

#include <QFile>
#include <QPainter>
#include <QPixmap>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <cmath>

// Not in a namespace, because the macro declares a function that the resource compiler generates.
static void loadSymbols() {
    Q_INIT_RESOURCE(Symbols);
}

namespace {

QString fileName(RecoverySymbol symbol) {
    switch (symbol) {
    case RecoverySymbol::arrowUp:
        return QStringLiteral("arrow.up");
    case RecoverySymbol::checkmark:
        return QStringLiteral("checkmark");
    case RecoverySymbol::checkmarkCircleFill:
        return QStringLiteral("checkmark.circle.fill");
    case RecoverySymbol::checkmarkShield:
        return QStringLiteral("checkmark.shield");
    case RecoverySymbol::chevronLeft:
        return QStringLiteral("chevron.left");
    case RecoverySymbol::chevronRight:
        return QStringLiteral("chevron.right");
    case RecoverySymbol::circle:
        return QStringLiteral("circle");
    case RecoverySymbol::doc:
        return QStringLiteral("doc");
    case RecoverySymbol::exclamationmarkTriangleFill:
        return QStringLiteral("exclamationmark.triangle.fill");
    case RecoverySymbol::externaldrive:
        return QStringLiteral("externaldrive");
    case RecoverySymbol::folder:
        return QStringLiteral("folder");
    case RecoverySymbol::house:
        return QStringLiteral("house");
    case RecoverySymbol::personCropCircleBadgeXmark:
        return QStringLiteral("person.crop.circle.badge.xmark");
    case RecoverySymbol::photoStackFill:
        return QStringLiteral("photo.stack.fill");
    case RecoverySymbol::shippingboxFill:
        return QStringLiteral("shippingbox.fill");
    case RecoverySymbol::squareAndArrowDown:
        return QStringLiteral("square.and.arrow.down");
    case RecoverySymbol::xmark:
        return QStringLiteral("xmark");
    }
    Q_UNREACHABLE();
}

/// The stroke width in the unit of the files, in which a symbol is 20 wide.
QByteArray strokeWidth(QFont::Weight weight) {
    if (weight >= QFont::Bold) {
        return "3";
    }
    return weight >= QFont::DemiBold ? "2.5" : "2";
}

/// The source of the symbol's file, with its color and weight filled in.
QByteArray source(const QString& name, const QColor& color, QFont::Weight weight) {
    loadSymbols();
    QFile file(QStringLiteral(":/symbols/%1.svg").arg(name));
    const bool isOpen = file.open(QIODevice::ReadOnly);
    Q_ASSERT(isOpen);
    return file.readAll()
        .replace("currentColor", color.name().toLatin1())
        .replace(R"(stroke-width="2")", R"(stroke-width=")" + strokeWidth(weight) + '"');
}

QPixmap draw(const QByteArray& source, const QSize& deviceSize, const QColor& color) {
    QSvgRenderer renderer(source);
    QPixmap pixmap(deviceSize);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setOpacity(color.alphaF());
    renderer.render(&painter);
    return pixmap;
}

/// Rounds to whole device pixels, so that the pixmap is not resampled.
QPointF alignedToPixels(const QPointF& point, const QPainter& painter) {
    const QTransform transform = painter.deviceTransform();
    const QPointF device = transform.map(point);
    return transform.inverted().map(QPointF(std::round(device.x()), std::round(device.y())));
}

} // namespace

void SymbolPainter::paint(QPainter& painter, RecoverySymbol symbol, const QRectF& rect, const QColor& color,
                          QFont::Weight weight) {
    const qreal scale = painter.deviceTransform().m11();
    const QSize deviceSize = (rect.size() * scale).toSize();
    const QString name = fileName(symbol);
    const QString key = QStringLiteral("%1 %2 %3 %4x%5")
                            .arg(name, color.name(QColor::HexArgb))
                            .arg(weight)
                            .arg(deviceSize.width())
                            .arg(deviceSize.height());
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = draw(source(name, color, weight), deviceSize, color);
        QPixmapCache::insert(key, pixmap);
    }
    pixmap.setDevicePixelRatio(scale);
    painter.drawPixmap(alignedToPixels(rect.topLeft(), painter), pixmap);
}
