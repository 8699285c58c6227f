#include "AmbrelRecoveryApp/Controls/SymbolPainter.h"

#include <QFile>
#include <QPainter>
#include <QPixmap>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <cmath>
#include <cstddef>
#include <iterator>

// Not in a namespace, because the macro declares a function that the resource compiler generates.
static void loadSymbols() {
    Q_INIT_RESOURCE(Symbols);
}

namespace {

/// The names of the files, in the order of the symbols.
constexpr const char* fileNames[] = {"arrow.up",
                                     "checkmark",
                                     "checkmark.circle.fill",
                                     "checkmark.shield",
                                     "chevron.left",
                                     "chevron.right",
                                     "circle",
                                     "doc",
                                     "exclamationmark.triangle.fill",
                                     "externaldrive",
                                     "folder",
                                     "house",
                                     "person.crop.circle.badge.xmark",
                                     "photo.stack.fill",
                                     "shippingbox.fill",
                                     "square.and.arrow.down",
                                     "xmark"};
static_assert(std::size(fileNames) == static_cast<std::size_t>(RecoverySymbol::xmark) + 1);

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
    const QString name = QLatin1String(fileNames[static_cast<std::size_t>(symbol)]);
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
