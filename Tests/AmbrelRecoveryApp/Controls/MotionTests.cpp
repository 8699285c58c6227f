#include "AmbrelRecoveryApp/Controls/Motion.h"

#include "AmbrelRecoveryApp/Controls/ProgressIndicator.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/ScreenTransition.h"
#include "MovingStyle.h"

#include <QPainter>
#include <QTest>
#include <gtest/gtest.h>

namespace {

constexpr int generousMilliseconds = 60'000;

/// A widget of one color.
class Plain : public QWidget {
public:
    explicit Plain(const QColor& ground) : color(ground) { resize(200, 100); }

    QColor color;

protected:
    void paintEvent(QPaintEvent* /*event*/) override { QPainter(this).fillRect(rect(), color); }
};

class MotionTest : public testing::Test {
protected:
    ~MotionTest() override { Motion::setReduced(false); }

    static QColor middleOf(QWidget& widget) {
        const QImage picture = widget.grab().toImage();
        return picture.pixelColor(picture.rect().center());
    }

    MovingStyle moving{200};
    MovingStyle still{0};
};

/// How much of the bar is filled, in pixels.
int filledWidth(QWidget& bar) {
    const QImage picture = bar.grab().toImage();
    int width = 0;
    for (int x = 0; x < picture.width(); ++x) {
        width += picture.pixel(x, picture.height() / 2) == RecoveryPalette::copper().rgb() ? 1 : 0;
    }
    return width;
}

} // namespace

TEST_F(MotionTest, isShortInAMovingStyleAndAbsentInAStillOne) {
    QWidget widget;
    widget.setStyle(&moving);
    EXPECT_GT(Motion::duration(widget), std::chrono::milliseconds::zero());
    EXPECT_LE(Motion::duration(widget), std::chrono::milliseconds(250));
    widget.setStyle(&still);
    EXPECT_EQ(Motion::duration(widget), std::chrono::milliseconds::zero());
}

TEST_F(MotionTest, isAbsentOnlyWhileItIsReduced) {
    QWidget widget;
    widget.setStyle(&moving);
    Motion::setReduced(true);
    EXPECT_EQ(Motion::duration(widget), std::chrono::milliseconds::zero());
    Motion::setReduced(false);
    EXPECT_GT(Motion::duration(widget), std::chrono::milliseconds::zero());
}

TEST_F(MotionTest, theNewScreenAppearsAtOnceIfMotionIsReduced) {
    Plain parent(Qt::red);
    ScreenTransition transition(&parent);
    transition.setStyle(&moving);
    Motion::setReduced(true);
    parent.show();
    transition.begin(parent.rect());
    parent.color = Qt::blue;
    EXPECT_FALSE(transition.isVisible());
    EXPECT_EQ(middleOf(parent), QColor(Qt::blue));
}

TEST_F(MotionTest, theEarlierScreenFadesAndLeavesTheNewOne) {
    Plain parent(Qt::red);
    ScreenTransition transition(&parent);
    transition.setStyle(&moving);
    parent.show();
    transition.begin(parent.rect());
    parent.color = Qt::blue;
    EXPECT_TRUE(transition.isVisible());
    EXPECT_GT(middleOf(parent).red(), 0) << "the earlier screen was gone at once";
    EXPECT_TRUE(QTest::qWaitFor([&] { return !transition.isVisible(); }, generousMilliseconds));
    EXPECT_EQ(middleOf(parent), QColor(Qt::blue));
}

TEST_F(MotionTest, theNewScreenCanBeClickedDuringTheFade) {
    Plain parent(Qt::red);
    ScreenTransition transition(&parent);
    transition.setStyle(&moving);
    parent.show();
    transition.begin(parent.rect());
    EXPECT_EQ(parent.childAt(parent.rect().center()), nullptr);
}

TEST_F(MotionTest, theNewScreenAppearsAtOnceInAStillStyle) {
    Plain parent(Qt::red);
    ScreenTransition transition(&parent);
    transition.setStyle(&still);
    parent.show();
    transition.begin(parent.rect());
    parent.color = Qt::blue;
    EXPECT_FALSE(transition.isVisible());
    EXPECT_EQ(middleOf(parent), QColor(Qt::blue));
}

TEST_F(MotionTest, theBarIsAtItsFractionAtOnce) {
    ProgressIndicator bar;
    bar.setStyle(&moving);
    bar.setFraction(0.1);
    bar.resize(bar.sizeHint());
    bar.show();
    EXPECT_GT(filledWidth(bar), 0);
    EXPECT_LT(filledWidth(bar), bar.width() * 2 / 10);
    bar.setFraction(0.9);
    EXPECT_GT(filledWidth(bar), bar.width() * 8 / 10);
}
