#include "AmbrelRecoveryApp/Screens/DropArea.h"

#include "AmbrelRecoveryApp/Foundation/FileURL.h"
#include "RecoveryRootViewTestCase.h"
#include "ScreensTestSupport.h"

#include <QApplication>
#include <QDialog>
#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QTest>
#include <QUrl>

namespace {

/// Drags are sent to the window's content as the toolkit sends them.
class DropAreaTest : public RecoveryRootViewTestCase {
protected:
    static QUrl url(const std::filesystem::path& item) { return QUrl::fromEncoded(FileURL::encoded(item)); }
    void drag(const std::vector<std::filesystem::path>& items) {
        QList<QUrl> urls;
        for (const std::filesystem::path& item : items) {
            urls.append(url(item));
        }
        dragged.setUrls(urls);
    }

    bool enter(Qt::DropActions possible = Qt::CopyAction | Qt::MoveAction | Qt::LinkAction) {
        QDragEnterEvent event(QPoint(400, 300), possible, &dragged, Qt::LeftButton, Qt::NoModifier);
        return sent(event);
    }
    bool move() {
        QDragMoveEvent event(QPoint(410, 300), Qt::CopyAction | Qt::MoveAction, &dragged, Qt::LeftButton,
                             Qt::NoModifier);
        return sent(event);
    }
    bool drop() {
        QDropEvent event(QPointF(410, 300), Qt::CopyAction | Qt::MoveAction, &dragged, Qt::LeftButton, Qt::NoModifier);
        return sent(event);
    }
    void leave() {
        QDragLeaveEvent event;
        QApplication::sendEvent(view.get(), &event);
    }
    void dragAndDrop() {
        enter();
        move();
        untilAnnounced([this] { drop(); });
        redraw();
    }

    bool isHintShown() const { return view->findChild<DropArea*>()->isVisible(); }

    QMimeData dragged;
    /// What the last drag was answered with.
    Qt::DropAction action = Qt::IgnoreAction;

private:
    bool sent(QDropEvent& event) {
        // The action that a file manager proposes on one and the same disk.
        event.setDropAction(Qt::MoveAction);
        event.ignore();
        QApplication::sendEvent(view.get(), &event);
        action = event.dropAction();
        return event.isAccepted();
    }
};

TEST_F(DropAreaTest, aDroppedPackageIsChosen) {
    open();
    drag({path("Family Photos.ambrel")});
    EXPECT_TRUE(enter());
    EXPECT_EQ(action, Qt::CopyAction);
    EXPECT_TRUE(isHintShown());
    EXPECT_TRUE(move());
    EXPECT_EQ(action, Qt::CopyAction);
    EXPECT_FALSE(model->packageURL());
    untilAnnounced([this] { EXPECT_TRUE(drop()); });
    EXPECT_EQ(action, Qt::CopyAction);
    EXPECT_FALSE(isHintShown());
    EXPECT_EQ(model->packageURL(), path("Family Photos.ambrel"));
}

TEST_F(DropAreaTest, aNameInAnyEncodingIsTakenAsItIs) {
    open();
    const std::filesystem::path package = path("100% \xFF\n#1.ambrel");
    std::filesystem::create_directory(package);
    drag({package});
    dragAndDrop();
    EXPECT_EQ(model->packageURL(), package);
    // The toolkit, which removes the folder around it, cannot name it.
    std::filesystem::remove(package);
}

TEST_F(DropAreaTest, whatIsNotAPackageIsRefusedWithTheErrorOfTheOpenPanel) {
    open();
    drag({path("engine")});
    dragAndDrop();
    ASSERT_TRUE(model->presentedError());
    EXPECT_EQ(model->presentedError()->title, QStringLiteral("This is not a supported backup package"));
    EXPECT_TRUE(isAlertShown());
    EXPECT_FALSE(model->packageURL());
}

TEST_F(DropAreaTest, onlyASingleLocalItemIsTaken) {
    open();
    const auto isRefused = [this] {
        const bool entered = enter();
        const bool moved = move();
        const bool hinted = isHintShown();
        const bool dropped = drop();
        return !entered && !moved && !hinted && !dropped && !isHintShown();
    };
    drag({path("Family Photos.ambrel"), path("engine")});
    EXPECT_TRUE(isRefused());
    drag({});
    EXPECT_TRUE(isRefused());
    dragged.clear();
    dragged.setText(QString::fromStdString(path("Family Photos.ambrel").native()));
    EXPECT_TRUE(isRefused());
    for (const char* const other : {"https://example.org/a.ambrel", "smb://host/a.ambrel", "file://host/a.ambrel"}) {
        dragged.setUrls({QUrl(other)});
        EXPECT_TRUE(isRefused()) << other;
    }
    EXPECT_FALSE(model->packageURL());
    EXPECT_FALSE(model->presentedError());
}

TEST_F(DropAreaTest, aDragThatAllowsOnlyMovingIsNotTaken) {
    open();
    drag({path("Family Photos.ambrel")});
    EXPECT_FALSE(enter(Qt::MoveAction));
    EXPECT_FALSE(isHintShown());
    EXPECT_TRUE(enter(Qt::MoveAction | Qt::LinkAction));
    EXPECT_EQ(action, Qt::LinkAction);
}

TEST_F(DropAreaTest, theHintIsHiddenWhenTheDragLeaves) {
    open();
    drag({path("Family Photos.ambrel")});
    enter();
    EXPECT_TRUE(isHintShown());
    leave();
    EXPECT_FALSE(isHintShown());
    EXPECT_FALSE(model->packageURL());
}

TEST_F(DropAreaTest, nothingIsTakenWhileAnOperationRuns) {
    setEngineThatWaits();
    open();
    choosePackage();
    type(QStringLiteral("secret"));
    redraw();
    std::filesystem::create_directory(path("Other.ambrel"));
    drag({path("Other.ambrel")});
    EXPECT_TRUE(enter());
    model->inspectBackup();
    waitUntilEngineRuns();
    EXPECT_FALSE(isHintShown());
    EXPECT_FALSE(move());
    EXPECT_FALSE(drop());
    EXPECT_FALSE(enter());
    EXPECT_EQ(model->packageURL(), path("Family Photos.ambrel"));
    model->cancelOperation();
    redraw();
    EXPECT_TRUE(enter());
}

TEST_F(DropAreaTest, nothingIsTakenBehindAnAlertOrAPanel) {
    open();
    drag({path("Family Photos.ambrel")});
    untilAnnounced([this] { model->acceptPackage(path("")); });
    redraw();
    EXPECT_FALSE(enter());
    model->dismissPresentedError();
    redraw();
    QDialog panel(view.get());
    panel.open();
    EXPECT_FALSE(enter());
    panel.reject();
    EXPECT_TRUE(enter());
}

TEST_F(DropAreaTest, anotherPackageIsTakenAfterAnInspection) {
    open();
    inspect(inspectionDocument());
    redraw();
    std::filesystem::create_directory(path("Other.ambrel"));
    drag({path("Other.ambrel")});
    dragAndDrop();
    EXPECT_EQ(model->packageURL(), path("Other.ambrel"));
    EXPECT_EQ(model->phase(), Phase::chooseBackup);
}

TEST_F(DropAreaTest, theHintIsDrawnOverTheWholeWindow) {
    open();
    const QImage before = view->grab().toImage();
    drag({path("Family Photos.ambrel")});
    enter();
    const QImage after = view->grab().toImage();
    leave();
    EXPECT_NE(before.pixel(440, 10), after.pixel(440, 10));
    EXPECT_NE(before.pixel(440, 649), after.pixel(440, 649));
    EXPECT_EQ(view->grab().toImage(), before);
}

} // namespace
