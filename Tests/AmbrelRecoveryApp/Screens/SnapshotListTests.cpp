#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotList.h"

#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotListModel.h"
#include "AmbrelRecoveryApp/Screens/SnapshotsContent.h"
#include "ScreensTestSupport.h"

#include <QAccessible>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

#include <initializer_list>
#include <utility>

namespace {

class SnapshotListTest : public testing::Test {
protected:
    SnapshotListTest() {
        list.resize(600, 400);
        show(3);
        list.show();
    }

    /// Shows `count` snapshots, named by their rows.
    void show(int count) {
        std::vector<AmbrelRecoveryInspectionDocument::Snapshot> snapshots;
        for (int row = 0; row < count; ++row) {
            snapshots.push_back(snapshot(std::to_string(row), -row));
        }
        state.snapshots = std::make_shared<SortedSnapshots>(inspection(std::move(snapshots)));
        apply();
        // The view lays its rows out in the next turn.
        QCoreApplication::processEvents();
    }

    void select(const std::optional<std::string>& code) {
        state.selectedSnapshotCode = code;
        apply();
    }

    void apply() { list.apply(snapshotsContent(state).rows); }
    QRect rect(int row) { return list.visualRect(list.model()->index(row, 0)); }
    void click(const QPoint& position) { QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, position); }
    QAccessibleInterface& accessible() { return *QAccessible::queryAccessibleInterface(&list); }
    static void press(QAccessibleInterface* row) {
        QAccessibleActionInterface* const actions = row ? row->actionInterface() : nullptr;
        ASSERT_NE(actions, nullptr);
        EXPECT_TRUE(actions->actionNames().contains(QAccessibleActionInterface::pressAction()));
        actions->doAction(QAccessibleActionInterface::pressAction());
    }

    RecoveryScreenState state = stateIn(RecoveryScreenState::Phase::snapshots);
    SnapshotList list;
    QSignalSpy choices{&list, &SnapshotList::chosen};
};

TEST_F(SnapshotListTest, aClickAnywhereInARowChoosesIt) {
    click(rect(1).topLeft() + QPoint(30, 4));
    click(rect(2).center());
    ASSERT_EQ(choices.count(), 2);
    EXPECT_EQ(choices[0].first().toInt(), 1);
    EXPECT_EQ(choices[1].first().toInt(), 2);
}

TEST_F(SnapshotListTest, theGapBetweenTwoRowsChoosesNothing) {
    click(rect(1).bottomLeft() + QPoint(50, -3));
    click(rect(2).bottomLeft() + QPoint(50, 30));
    EXPECT_EQ(choices.count(), 0);
}

TEST_F(SnapshotListTest, aControlClickDoesNotUndoTheChoice) {
    select("1");
    QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::ControlModifier, rect(1).center());
    EXPECT_TRUE(list.selectionModel()->isSelected(list.model()->index(1, 0)));
    EXPECT_EQ(list.selectionModel()->selectedIndexes().size(), 1);
}

TEST_F(SnapshotListTest, arrowKeysChoose) {
    select("0");
    QTest::keyClick(&list, Qt::Key_Down);
    ASSERT_EQ(choices.count(), 1);
    EXPECT_EQ(choices[0].first().toInt(), 1);
}

TEST_F(SnapshotListTest, theFirstKeyChoosesIfNoneIsChosen) {
    for (const int count : {1, 3}) {
        const int last = count - 1;
        for (const auto& [key, row] : std::initializer_list<std::pair<Qt::Key, int>>{{Qt::Key_Down, 0},
                                                                                     {Qt::Key_Up, 0},
                                                                                     {Qt::Key_Home, 0},
                                                                                     {Qt::Key_PageUp, 0},
                                                                                     {Qt::Key_PageDown, 0},
                                                                                     {Qt::Key_End, last}}) {
            show(count);
            choices.clear();
            QTest::keyClick(&list, key);
            ASSERT_EQ(choices.count(), 1) << key << " among " << count;
            EXPECT_EQ(choices[0].first().toInt(), row) << key << " among " << count;
        }
    }
}

TEST_F(SnapshotListTest, keysThatDoNotNavigateChooseNothing) {
    for (const Qt::Key key : {Qt::Key_A, Qt::Key_Escape, Qt::Key_Shift}) {
        QTest::keyClick(&list, key);
    }
    EXPECT_EQ(choices.count(), 0);
}

TEST_F(SnapshotListTest, theFirstRowHasTheFocusIfNoneIsChosenEvenInLaterInspections) {
    list.activateWindow();
    list.setFocus();
    for (int inspection = 0; inspection < 3; ++inspection) {
        show(3);
        EXPECT_EQ(list.currentIndex().row(), 0);
        EXPECT_EQ(accessible().focusChild(), accessible().child(0));
        ASSERT_NE(accessible().focusChild(), nullptr);
        EXPECT_TRUE(accessible().focusChild()->state().focused);
        EXPECT_FALSE(accessible().focusChild()->state().selected);
        select("2");
        select(std::nullopt);
        EXPECT_EQ(list.currentIndex().row(), 2);
    }
    EXPECT_EQ(choices.count(), 0);
}

TEST_F(SnapshotListTest, showingASelectionIsNoChoice) {
    select("2");
    select(std::nullopt);
    EXPECT_EQ(choices.count(), 0);
    EXPECT_TRUE(list.selectionModel()->selectedIndexes().isEmpty());
}

TEST_F(SnapshotListTest, theScrollPositionSurvivesTheChoiceOfAVisibleRow) {
    show(1000);
    list.verticalScrollBar()->setValue(5000);
    const int row = list.indexAt(QPoint(100, 150)).row();
    click(QPoint(100, 150));
    select(std::to_string(row));
    EXPECT_EQ(list.verticalScrollBar()->value(), 5000);
    EXPECT_EQ(list.indexAt(QPoint(100, 150)).row(), row);
}

TEST_F(SnapshotListTest, otherSnapshotsReplaceTheRows) {
    select("2");
    show(2);
    EXPECT_EQ(list.model()->rowCount(), 2);
    EXPECT_TRUE(list.selectionModel()->selectedIndexes().isEmpty());
    state.snapshots = nullptr;
    apply();
    EXPECT_EQ(list.model()->rowCount(), 0);
    EXPECT_EQ(choices.count(), 0);
}

TEST_F(SnapshotListTest, theClickedOneOfTwoSnapshotsWithTheSameCodeStaysCurrent) {
    state.snapshots = std::make_shared<SortedSnapshots>(inspection({snapshot("same", 2), snapshot("same", 1)}));
    apply();
    click(rect(1).center());
    select("same");
    EXPECT_EQ(list.currentIndex().row(), 1);
}

TEST_F(SnapshotListTest, aHundredThousandRowsExistAndAreNamed) {
    show(100'000);
    select("99999");
    EXPECT_EQ(list.model()->rowCount(), 100'000);
    EXPECT_EQ(list.currentIndex().row(), 99'999);
    EXPECT_EQ(accessible().childCount(), 100'000);
    EXPECT_EQ(accessible().child(99'999)->text(QAccessible::Name),
              list.snapshotModel().content(list.currentIndex()).sentence());
}

TEST_F(SnapshotListTest, rowsAreListItemsNamedByASentence) {
    select("1");
    EXPECT_EQ(accessible().role(), QAccessible::List);
    EXPECT_TRUE(accessible().state().focusable);
    ASSERT_EQ(accessible().childCount(), 3);
    QAccessibleInterface& row = *accessible().child(1);
    EXPECT_EQ(row.role(), QAccessible::ListItem);
    EXPECT_EQ(row.text(QAccessible::Name), snapshotsContent(state).rows.row(1).sentence());
    EXPECT_TRUE(row.state().selected);
    EXPECT_TRUE(row.state().checked);
    EXPECT_FALSE(accessible().child(0)->state().selected);
    EXPECT_EQ(row.parent(), &accessible());
    EXPECT_EQ(accessible().indexOfChild(&row), 1);
    EXPECT_TRUE(list.viewport()->rect().contains(list.viewport()->mapFromGlobal(row.rect().center())));
    EXPECT_EQ(accessible().childAt(row.rect().center().x(), row.rect().center().y()), &row);
}

TEST_F(SnapshotListTest, aRowIsChosenByAssistiveTechnology) {
    press(accessible().child(2));
    ASSERT_EQ(choices.count(), 1);
    EXPECT_EQ(choices[0].first().toInt(), 2);
}

TEST_F(SnapshotListTest, aRemovedRowIsNoLongerValid) {
    QAccessibleInterface* const row = accessible().child(2);
    show(1);
    EXPECT_FALSE(row->isValid());
    EXPECT_EQ(row->text(QAccessible::Name), QString());
    press(row);
    EXPECT_EQ(choices.count(), 0);
}

} // namespace
