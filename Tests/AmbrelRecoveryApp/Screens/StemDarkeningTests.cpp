#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"

#include <QFontDatabase>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <gtest/gtest.h>

namespace {

constexpr QSize size(400, 40);
constexpr QPointF origin(10, 28);

QString text() {
    return QStringLiteral("Choose the backup package");
}

/// How much of a black picture a white drawing covers, in pixels.
template<typename Draw>
double coverage(const Draw& draw) {
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::black);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::white);
    draw(painter);
    painter.end();
    double sum = 0;
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            sum += qGray(picture.pixel(x, y)) / 255.0;
        }
    }
    return sum;
}

double coverageOfText(const QFont& font) {
    return coverage([&](QPainter& painter) {
        painter.setFont(font);
        painter.drawText(origin, text());
    });
}

double coverageOfOutlines(const QFont& font) {
    QPainterPath path;
    path.addText(origin, font, text());
    return coverage([&](QPainter& painter) { painter.fillPath(path, Qt::white); });
}

} // namespace

TEST(StemDarkeningTests, aTextCoversWhatTheOutlinesOfItsFontCover) {
    QFont font = recoveryFont(16, QFont::Normal);
    // Its outlines are PostScript's, which are the ones that would be thickened.
    font.setFamily(QStringLiteral("Inter"));
    ASSERT_TRUE(QFontDatabase::hasFamily(font.family())) << "the font that the tests install is missing";

    const double outlines = coverageOfOutlines(font);

    ASSERT_GT(outlines, 100);
    EXPECT_NEAR(coverageOfText(font) / outlines, 1, 0.05);
}
