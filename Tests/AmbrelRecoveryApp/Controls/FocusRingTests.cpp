#include "AmbrelRecoveryApp/Controls/FocusRing.h"

#include "../Screens/ScreensTestSupport.h"
#include "AmbrelRecoveryApp/Controls/PrimaryRecoveryButton.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/SecondaryRecoveryButton.h"
#include "AmbrelRecoveryApp/Controls/SegmentedPicker.h"
#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotList.h"
#include "AmbrelRecoveryApp/Screens/SnapshotsContent.h"

#include <QImage>
#include <QRadioButton>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace {

/// Whether the middle of the upper edge of `area` in `widget` is drawn in `color`, `inset` pixels below the edge.
bool isRinged(QWidget& widget, const QRect& area, const QColor& color, int inset) {
    return widget.grab().toImage().pixel(area.center().x(), area.top() + inset) == color.rgb();
}

/// Tells of the next time that a widget is drawn.
class DrawingWatch final : public QObject {
public:
    explicit DrawingWatch(QWidget& widget) { widget.installEventFilter(this); }

    bool wasDrawn() {
        return QTest::qWaitFor([this] { return wasDrawn_; });
    }

protected:
    bool eventFilter(QObject* /*object*/, QEvent* event) override {
        wasDrawn_ = wasDrawn_ || event->type() == QEvent::Paint;
        return false;
    }

private:
    bool wasDrawn_ = false;
};

/// A window with two buttons, a picker and a list of three snapshots, whose user has last used the pointer.
class FocusRingTest : public testing::Test {
protected:
    FocusRingTest() {
        auto* const layout = new QVBoxLayout(&window);
        first->setLabel(QStringLiteral("First"));
        second->setLabel(QStringLiteral("Second"));
        picker->apply({QStringLiteral("One"), QStringLiteral("Two")}, 0);
        RecoveryScreenState state = stateIn(RecoveryScreenState::Phase::snapshots);
        state.snapshots = std::make_shared<SortedSnapshots>(
            inspection({snapshot("newest", 3), snapshot("middle", 2), snapshot("oldest", 1)}));
        list->apply(snapshotsContent(state).rows);
        for (QWidget* const widget : std::initializer_list<QWidget*>{first, second, picker, list}) {
            layout->addWidget(widget);
        }
        window.resize(600, 600);
        open(window);
        point();
        first->setFocus();
    }

    static void open(QWidget& opened) {
        opened.show();
        opened.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&opened));
        // Drawn once, as everything is before it can be used.
        opened.grab();
    }

    void point() { QTest::mouseClick(&window, Qt::LeftButton, {}, QPoint(1, 1)); }

    static bool isRinged(PrimaryRecoveryButton* button) {
        return ::isRinged(*button, button->rect(), RecoveryPalette::primary(), 3);
    }
    static bool isRinged(SecondaryRecoveryButton* button) {
        return ::isRinged(*button, button->rect(), RecoveryPalette::copper(), 1);
    }
    static bool isRinged(QRadioButton* segment) {
        return ::isRinged(*segment, segment->rect(), RecoveryPalette::copper(), 1);
    }
    bool isRowRinged(int row) const {
        return ::isRinged(*list->viewport(), list->visualRect(list->model()->index(row, 0)), RecoveryPalette::primary(),
                          1);
    }

    QWidget window;
    PrimaryRecoveryButton* const first = new PrimaryRecoveryButton(std::nullopt, &window);
    SecondaryRecoveryButton* const second = new SecondaryRecoveryButton(std::nullopt, &window);
    SegmentedPicker* const picker = new SegmentedPicker(2, &window);
    SnapshotList* const list = new SnapshotList(&window);
};

TEST_F(FocusRingTest, isNotShownWhileThePointerIsUsed) {
    EXPECT_FALSE(isRinged(first));
    second->setFocus();
    EXPECT_FALSE(isRinged(second));
}

TEST_F(FocusRingTest, isShownAfterEveryNavigationKey) {
    for (const Qt::Key key :
         {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down, Qt::Key_Home, Qt::Key_End, Qt::Key_PageUp,
          Qt::Key_PageDown, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_Escape, Qt::Key_Backspace}) {
        first->setFocus();
        QTest::keyClick(first, key);
        first->setFocus();
        EXPECT_TRUE(isRinged(first)) << key;
        EXPECT_FALSE(isRinged(second)) << key;
        point();
        EXPECT_FALSE(isRinged(first)) << key;
    }
}

TEST_F(FocusRingTest, followsTheTabKey) {
    QTest::keyClick(first, Qt::Key_Tab);
    EXPECT_FALSE(isRinged(first));
    EXPECT_TRUE(isRinged(second));
}

TEST_F(FocusRingTest, isNotShownAfterLettersAndModifiers) {
    for (const Qt::Key key :
         {Qt::Key_A, Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt, Qt::Key_CapsLock, Qt::Key_Print}) {
        QTest::keyClick(first, key);
        EXPECT_FALSE(isRinged(first)) << key;
    }
}

TEST_F(FocusRingTest, followsTheFocusThatTheProgramMovesAfterAKey) {
    QTest::keyClick(first, Qt::Key_Return);
    second->setFocus();
    EXPECT_TRUE(isRinged(second));
}

TEST_F(FocusRingTest, followsTheArrowsInAPicker) {
    const QList<QRadioButton*> segments = picker->findChildren<QRadioButton*>();
    segments[0]->setFocus();
    EXPECT_FALSE(isRinged(segments[0]));
    QTest::keyClick(segments[0], Qt::Key_Right);
    EXPECT_FALSE(isRinged(segments[0]));
    EXPECT_TRUE(isRinged(segments[1]));
}

TEST_F(FocusRingTest, isAroundTheCurrentRowOfAList) {
    list->setFocus();
    EXPECT_FALSE(isRowRinged(0));
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_TRUE(isRowRinged(0));
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_FALSE(isRowRinged(0));
    EXPECT_TRUE(isRowRinged(1));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(list->model()->index(2, 0)).center());
    EXPECT_FALSE(isRowRinged(1));
    EXPECT_FALSE(isRowRinged(2));
}

TEST_F(FocusRingTest, isShownAtOnceInAWindowThatAKeyOpens) {
    QTest::keyClick(first, Qt::Key_Return);
    QWidget panel;
    auto* const button = new PrimaryRecoveryButton(std::nullopt, &panel);
    button->setLabel(QStringLiteral("Choose"));
    button->resize(button->sizeHint());
    button->setFocus();
    open(panel);
    EXPECT_TRUE(isRinged(button));
}

TEST_F(FocusRingTest, redrawsItsControlWhenItAppearsAndDisappears) {
    QWidget* const controls[] = {first, list->viewport()};
    for (QWidget* const drawn : controls) {
        QWidget* const control = drawn == first ? drawn : list;
        control->setFocus();
        QCoreApplication::processEvents();
        DrawingWatch coming(*drawn);
        QTest::keyClick(control, Qt::Key_Backspace);
        EXPECT_TRUE(coming.wasDrawn());
        DrawingWatch going(*drawn);
        point();
        EXPECT_TRUE(going.wasDrawn());
    }
}

} // namespace
