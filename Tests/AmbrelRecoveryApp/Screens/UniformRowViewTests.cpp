#include "AmbrelRecoveryApp/Controls/UniformRowView.h"

#include <QAbstractItemDelegate>
#include <QPainter>
#include <QScrollBar>
#include <QTest>
#include <gtest/gtest.h>

#include <initializer_list>
#include <set>
#include <utility>
#include <vector>

namespace {

constexpr int rowHeight = 40;
constexpr QSize viewSize(200, 400);

class NumberedRows final : public QAbstractListModel {
public:
    void setCount(int count) {
        beginResetModel();
        count_ = count;
        endResetModel();
    }

    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : count_; }
    QVariant data(const QModelIndex& /*index*/, int /*role*/) const override { return {}; }

private:
    int count_ = 0;
};

/// Remembers what it painted.
class RecordingDelegate final : public QAbstractItemDelegate {
public:
    struct Painted {
        int row;
        QRect place;
        bool isSelected;
        bool hasFocus;
    };

    void paint(QPainter* /*painter*/, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        painted.push_back({index.row(), option.rect, option.state.testFlag(QStyle::State_Selected),
                           option.state.testFlag(QStyle::State_HasFocus)});
    }
    QSize sizeHint(const QStyleOptionViewItem& /*option*/, const QModelIndex& index) const override {
        measured.insert(index.row());
        return {0, height};
    }

    int height = rowHeight;
    mutable std::set<int> measured;
    mutable std::vector<Painted> painted;
};

class UniformRowViewTests : public testing::Test {
protected:
    UniformRowViewTests() {
        view.setFrameShape(QFrame::NoFrame);
        view.setItemDelegate(&delegate);
        view.setModel(&model);
        view.setSelectionMode(QAbstractItemView::SingleSelection);
        view.resize(viewSize);
        model.setCount(1000);
        view.show();
        view.activateWindow();
        view.setFocus();
    }

    void SetUp() override { ASSERT_TRUE(QTest::qWaitForWindowActive(&view)); }

    QModelIndex index(int row) const { return model.index(row); }
    QScrollBar& bar() const { return *view.verticalScrollBar(); }
    int top(int row) const { return view.visualRect(index(row)).top(); }
    void drag(const QPoint& from, const QPoint& to) {
        QTest::mousePress(view.viewport(), Qt::LeftButton, Qt::NoModifier, from);
        QMouseEvent move(QEvent::MouseMove, QPointF(to), view.viewport()->mapToGlobal(QPointF(to)), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(view.viewport(), &move);
        QTest::mouseRelease(view.viewport(), Qt::LeftButton, Qt::NoModifier, to);
    }
    std::vector<int> paintedRows() {
        delegate.painted.clear();
        view.viewport()->repaint();
        std::vector<int> rows;
        for (const RecordingDelegate::Painted& painted : delegate.painted) {
            rows.push_back(painted.row);
        }
        return rows;
    }

    NumberedRows model;
    RecordingDelegate delegate;
    UniformRowView view;
};

TEST_F(UniformRowViewTests, everyRowIsAsHighAsTheFirstAndAsWideAsTheView) {
    EXPECT_EQ(view.visualRect(index(0)), QRect(0, 0, view.viewport()->width(), rowHeight));
    EXPECT_EQ(view.visualRect(index(7)), QRect(0, 7 * rowHeight, view.viewport()->width(), rowHeight));
    bar().setValue(100);
    EXPECT_EQ(top(7), 7 * rowHeight - 100);
    EXPECT_FALSE(view.visualRect(QModelIndex()).isValid());
}

TEST_F(UniformRowViewTests, aPointBelongsToTheRowThatIsShownThere) {
    bar().setValue(100);
    EXPECT_EQ(view.indexAt({5, 0}).row(), 2);
    EXPECT_EQ(view.indexAt({5, 19}).row(), 2);
    EXPECT_EQ(view.indexAt({5, 20}).row(), 3);
    EXPECT_FALSE(view.indexAt({-1, 5}).isValid());
    EXPECT_FALSE(view.indexAt({viewSize.width() + 1, 5}).isValid());
    model.setCount(2);
    EXPECT_EQ(view.indexAt({5, 2 * rowHeight - 1}).row(), 1);
    EXPECT_FALSE(view.indexAt({5, 2 * rowHeight}).isValid());
}

TEST_F(UniformRowViewTests, aPointAboveOrBelowTheViewBelongsToTheRowThatWouldBeThere) {
    bar().setValue(100);
    EXPECT_EQ(view.indexAt({5, -20}).row(), 2);
    EXPECT_EQ(view.indexAt({5, -100}).row(), 0);
    EXPECT_FALSE(view.indexAt({5, -101}).isValid());
    EXPECT_EQ(view.indexAt({5, viewSize.height() + 100}).row(), 15);
    EXPECT_FALSE(view.indexAt({5, 1000 * rowHeight}).isValid());
}

TEST_F(UniformRowViewTests, onlyTheVisibleRowsArePaintedAndOnlyTheFirstIsMeasured) {
    model.setCount(100'000);
    bar().setValue(50'000 * rowHeight + 10);
    EXPECT_EQ(paintedRows(),
              (std::vector{50'000, 50'001, 50'002, 50'003, 50'004, 50'005, 50'006, 50'007, 50'008, 50'009, 50'010}));
    EXPECT_EQ(delegate.painted.front().place, view.visualRect(index(50'000)));
    EXPECT_EQ(delegate.painted.front().place.top(), -10);
    EXPECT_EQ(delegate.measured, std::set{0});
}

TEST_F(UniformRowViewTests, theRowWithTheFocusAndTheSelectedOneArePaintedAsSuch) {
    view.selectionModel()->select(index(2), QItemSelectionModel::ClearAndSelect);
    view.selectionModel()->setCurrentIndex(index(4), QItemSelectionModel::NoUpdate);
    ASSERT_GT(paintedRows().size(), 5U);
    for (const RecordingDelegate::Painted& painted : delegate.painted) {
        EXPECT_EQ(painted.isSelected, painted.row == 2) << painted.row;
        EXPECT_EQ(painted.hasFocus, painted.row == 4) << painted.row;
    }
    view.clearFocus();
    ASSERT_GT(paintedRows().size(), 5U);
    EXPECT_FALSE(delegate.painted[4].hasFocus);
}

TEST_F(UniformRowViewTests, theWholeListCanBeScrolledAndNothingBeyondIt) {
    EXPECT_EQ(bar().maximum(), 1000 * rowHeight - viewSize.height());
    EXPECT_EQ(bar().pageStep(), viewSize.height());
    EXPECT_EQ(bar().singleStep(), rowHeight);
    bar().setValue(bar().maximum());
    EXPECT_EQ(view.visualRect(index(999)).bottom(), viewSize.height() - 1);
    view.resize(viewSize.width(), 600);
    EXPECT_EQ(bar().maximum(), 1000 * rowHeight - 600);
    EXPECT_EQ(view.visualRect(index(999)).bottom(), 599);
    model.setCount(3);
    EXPECT_EQ(bar().maximum(), 0);
    EXPECT_EQ(top(0), 0);
    model.setCount(0);
    EXPECT_EQ(bar().maximum(), 0);
    EXPECT_TRUE(paintedRows().empty());
}

TEST_F(UniformRowViewTests, aRowIsScrolledIntoSightByAsLittleAsPossible) {
    view.scrollTo(index(5));
    EXPECT_EQ(bar().value(), 0);
    view.scrollTo(index(20));
    EXPECT_EQ(view.visualRect(index(20)).bottom(), viewSize.height() - 1);
    const int before = bar().value();
    view.scrollTo(index(15));
    EXPECT_EQ(bar().value(), before);
    view.scrollTo(index(3));
    EXPECT_EQ(top(3), 0);
    view.scrollTo(QModelIndex());
    EXPECT_EQ(top(3), 0);
}

TEST_F(UniformRowViewTests, aRowIsScrolledToWhereItIsWanted) {
    view.scrollTo(index(500), QAbstractItemView::PositionAtTop);
    EXPECT_EQ(top(500), 0);
    view.scrollTo(index(500), QAbstractItemView::PositionAtBottom);
    EXPECT_EQ(top(500), viewSize.height() - rowHeight);
    view.scrollTo(index(500), QAbstractItemView::PositionAtCenter);
    EXPECT_EQ(top(500), (viewSize.height() - rowHeight) / 2);
}

TEST_F(UniformRowViewTests, ofARowHigherThanTheViewTheTopIsShown) {
    view.resize(viewSize.width(), rowHeight / 2);
    view.scrollTo(index(9));
    EXPECT_EQ(top(9), 0);
}

TEST_F(UniformRowViewTests, keysMoveByARowAPageAndToTheEnds) {
    constexpr int page = viewSize.height() / rowHeight;
    view.setCurrentIndex(index(500));
    for (const auto& [key, row] : std::initializer_list<std::pair<Qt::Key, int>>{{Qt::Key_Down, 501},
                                                                                 {Qt::Key_Up, 500},
                                                                                 {Qt::Key_PageDown, 500 + page},
                                                                                 {Qt::Key_PageUp, 500},
                                                                                 {Qt::Key_Left, 500},
                                                                                 {Qt::Key_Right, 500},
                                                                                 {Qt::Key_Home, 0},
                                                                                 {Qt::Key_Up, 0},
                                                                                 {Qt::Key_PageUp, 0},
                                                                                 {Qt::Key_End, 999},
                                                                                 {Qt::Key_Down, 999},
                                                                                 {Qt::Key_PageDown, 999}}) {
        QTest::keyClick(&view, key);
        EXPECT_EQ(view.currentIndex().row(), row) << key;
        EXPECT_TRUE(view.selectionModel()->isSelected(index(row))) << key;
        EXPECT_TRUE(view.viewport()->rect().contains(view.visualRect(index(row)))) << key;
    }
}

TEST_F(UniformRowViewTests, whereNoRowIsCurrentAKeyGoesToTheFirst) {
    view.setCurrentIndex(QModelIndex());
    QTest::keyClick(&view, Qt::Key_Down);
    EXPECT_EQ(view.currentIndex().row(), 0);
}

TEST_F(UniformRowViewTests, anEmptyListTakesKeysAndClicks) {
    model.setCount(0);
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_PageDown, Qt::Key_PageUp, Qt::Key_Home, Qt::Key_End}) {
        QTest::keyClick(&view, key);
    }
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, {5, 5});
    EXPECT_FALSE(view.currentIndex().isValid());
    view.setModel(nullptr);
    EXPECT_TRUE(paintedRows().empty());
}

TEST_F(UniformRowViewTests, aClickSelectsTheRowUnderIt) {
    bar().setValue(1000 * rowHeight / 2);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, {5, 3 * rowHeight + 1});
    EXPECT_EQ(view.currentIndex().row(), 503);
    EXPECT_EQ(view.selectionModel()->selectedIndexes(), QModelIndexList{index(503)});
}

TEST_F(UniformRowViewTests, draggingOverRowsSelectsAllOfThemWhereMoreThanOneMayBe) {
    view.setSelectionMode(QAbstractItemView::ExtendedSelection);
    for (const auto& [from, to] : {std::pair(1, 3), std::pair(3, 1)}) {
        view.clearSelection();
        drag({5, from * rowHeight + 1}, {5, to * rowHeight + 1});
        EXPECT_EQ(view.selectionModel()->selectedIndexes().size(), 3) << from;
        for (const int row : {1, 2, 3}) {
            EXPECT_TRUE(view.selectionModel()->isSelected(index(row))) << from;
        }
    }
}

TEST_F(UniformRowViewTests, theChoiceFollowsAMouseThatIsDraggedOutOfTheView) {
    drag({5, 5}, {5, viewSize.height() + 2 * rowHeight + 1});
    EXPECT_EQ(view.selectionModel()->selectedIndexes(), QModelIndexList{index(12)});
    EXPECT_TRUE(view.viewport()->rect().contains(view.visualRect(index(12))));
}

TEST_F(UniformRowViewTests, otherRowsAreMeasuredAnew) {
    delegate.height = 2 * rowHeight;
    model.setCount(10);
    EXPECT_EQ(top(1), 2 * rowHeight);
    EXPECT_EQ(bar().maximum(), 10 * 2 * rowHeight - viewSize.height());
    delegate.height = rowHeight;
    view.doItemsLayout();
    EXPECT_EQ(top(1), rowHeight);
}

TEST_F(UniformRowViewTests, rowsWithoutHeightAreStillApart) {
    delegate.height = 0;
    model.setCount(10);
    EXPECT_EQ(top(1), 1);
}

TEST_F(UniformRowViewTests, aListHigherThanTheToolkitCanCountIsScrolledAsFarAsItCan) {
    constexpr int count = 2'000'000'000;
    model.setCount(count);
    EXPECT_GT(bar().maximum(), 1'000'000'000);
    bar().setValue(bar().maximum());
    EXPECT_FALSE(paintedRows().empty());
    EXPECT_GT(top(count - 1), viewSize.height());
    view.setCurrentIndex(index(count - 1));
    QTest::keyClick(&view, Qt::Key_PageDown);
    EXPECT_EQ(view.currentIndex().row(), count - 1);
    view.scrollTo(index(0));
    EXPECT_EQ(top(0), 0);
}

} // namespace
