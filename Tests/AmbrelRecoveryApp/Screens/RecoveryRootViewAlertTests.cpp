#include "../Support/ThreadShortage.h"
#include "AmbrelRecoveryApp/Controls/SecureField.h"
#include "AmbrelRecoveryApp/Screens/ErrorAlert.h"
#include "AmbrelRecoveryApp/Screens/RecoveryRootView.h"
#include "RecoveryRootViewTestCase.h"
#include "ScreensTestSupport.h"

#include <QAccessible>
#include <QApplication>
#include <QTest>

namespace {

/// Counts how often a widget receives the focus.
class FocusCount final : public QObject {
public:
    explicit FocusCount(QWidget& widget) { widget.installEventFilter(this); }
    int value() const { return count_; }

protected:
    bool eventFilter(QObject* object, QEvent* event) override {
        count_ += event->type() == QEvent::FocusIn ? 1 : 0;
        return QObject::eventFilter(object, event);
    }

private:
    int count_ = 0;
};

class RecoveryRootViewAlertTest : public RecoveryRootViewTestCase {
protected:
    /// Opens the window on a chosen package whose secret is refused.
    void openAndBeRefused() {
        setEngineThatFails("did not unlock");
        open();
        choosePackage();
        type(QStringLiteral("wrong"));
        model->inspectBackup();
        waitUntil([this] { return model->presentedError().has_value(); });
        redraw();
    }

    /// Takes note of the alert, after which the keyboard is in the field for the secret again.
    void dismissAlertIntoTheField() {
        press(Qt::Key_Return);
        EXPECT_FALSE(model->presentedError());
        redraw();
        EXPECT_FALSE(isAlertShown());
        EXPECT_TRUE(field().hasFocus());
    }
};

TEST_F(RecoveryRootViewAlertTest, aRefusedSecretShowsTheAlertAndReturnsToTheField) {
    openAndBeRefused();
    ASSERT_TRUE(isAlertShown());
    QAccessibleInterface& accessible = *QAccessible::queryAccessibleInterface(&alert());
    EXPECT_EQ(accessible.role(), QAccessible::AlertMessage);
    EXPECT_EQ(accessible.text(QAccessible::Name), model->presentedError()->title);
    EXPECT_TRUE(accessible.state().modal);
    EXPECT_EQ(focused(), QStringLiteral("OK"));
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), QStringLiteral("OK"));
    dismissAlertIntoTheField();
}

TEST_F(RecoveryRootViewAlertTest, theAlertIsDismissedByEscapeAndGivesTheFocusBack) {
    open();
    panels.answer = path("");
    untilAnnounced([this] { button("Choose backup package")->click(); });
    redraw();
    ASSERT_TRUE(isAlertShown());
    press(Qt::Key_Escape);
    EXPECT_FALSE(model->presentedError());
    redraw();
    EXPECT_FALSE(isAlertShown());
    EXPECT_EQ(focused(), QStringLiteral("Choose backup package"));
}

TEST_F(RecoveryRootViewAlertTest, theFocusGoesToTheFieldIfTheControlBeforeTheAlertIsDisabled) {
    open();
    choosePackage();
    type(QStringLiteral("secret"));
    redraw();
    button("Inspect backup")->setFocus();
    {
        const ThreadShortage shortage;
        button("Inspect backup")->click();
    }
    redraw();
    ASSERT_TRUE(isAlertShown());
    EXPECT_FALSE(button("Inspect backup")->isEnabled());
    dismissAlertIntoTheField();
}

TEST_F(RecoveryRootViewAlertTest, theSameErrorAgainIsAnotherAlert) {
    open();
    panels.answer = path("");
    untilAnnounced([this] { button("Choose backup package")->click(); });
    redraw();
    press(Qt::Key_Return);
    untilAnnounced([this] { model->acceptPackage(path("")); });
    redraw();
    EXPECT_TRUE(isAlertShown());
    EXPECT_EQ(focused(), QStringLiteral("OK"));
}

TEST_F(RecoveryRootViewAlertTest, nothingBehindTheAlertReceivesTheFocusInAnInactiveWindow) {
    open();
    choosePackage();
    redraw();
    ASSERT_TRUE(field().hasFocus());
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    ASSERT_FALSE(field().hasFocus());
    const FocusCount received(field());
    untilAnnounced([this] { model->acceptPackage(path("not there")); });
    redraw();
    ASSERT_TRUE(isAlertShown());
    EXPECT_EQ(received.value(), 0);
    other.hide();
    view->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(view.get()));
    EXPECT_EQ(focused(), QStringLiteral("OK"));
    dismissAlertIntoTheField();
}

TEST_F(RecoveryRootViewAlertTest, nothingBehindTheAlertTakesTheFocus) {
    open();
    panels.answer = path("");
    untilAnnounced([this] { button("Choose backup package")->click(); });
    redraw();
    field().setFocus();
    EXPECT_EQ(focused(), QStringLiteral("OK"));
}

TEST_F(RecoveryRootViewAlertTest, aStartupErrorIsShownAsSoonAsTheWindowIs) {
    model =
        std::make_unique<RecoveryViewModel>(std::nullopt, RecoveryViewModel::Desktop{panels, fileViewer, cloudItems});
    openOnModel();
    EXPECT_TRUE(isAlertShown());
    EXPECT_EQ(focused(), QStringLiteral("OK"));
    EXPECT_EQ(announced(), model->presentedError()->title + u'\n' + model->presentedError()->body);
    press(Qt::Key_Return);
    redraw();
    EXPECT_EQ(focused(), QStringLiteral("Choose backup package"));
    EXPECT_EQ(announced(), std::nullopt);
}

TEST_F(RecoveryRootViewAlertTest, anotherErrorReplacesTheOneThatIsShown) {
    openAndBeRefused();
    const RecoveryViewModel::PresentedError first = *model->presentedError();
    EXPECT_EQ(announced(), first.title + u'\n' + first.body);

    untilAnnounced([this] { model->acceptPackage(path("not there")); });
    const RecoveryViewModel::PresentedError second = *model->presentedError();
    ASSERT_NE(second.id, first.id);
    ASSERT_NE(second.title, first.title);
    redraw();
    EXPECT_TRUE(isAlertShown());
    EXPECT_EQ(alert().accessibleName(), second.title);
    EXPECT_EQ(alert().accessibleDescription(), second.body);
    EXPECT_EQ(announced(), second.title + u'\n' + second.body);
    EXPECT_EQ(focused(), QStringLiteral("OK"));

    dismissAlertIntoTheField();
}

} // namespace
