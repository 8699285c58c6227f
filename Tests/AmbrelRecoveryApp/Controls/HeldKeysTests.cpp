#include "AmbrelRecoveryApp/Controls/HeldKeys.h"

#include "../Screens/RecoveryRootViewTestCase.h"
#include "../Support/TestEnvironment.h"

#include <QSignalSpy>

namespace {

constexpr Qt::Key pressingKeys[] = {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_Escape};

/// What a key that is still down sends to whatever has the keyboard, in as many turns of the event loop.
void repeat(Qt::Key key, int times = 3) {
    for (int time = 0; time < times; ++time) {
        const QString text = key == Qt::Key_Space ? QStringLiteral(" ") : QString();
        for (const QEvent::Type type : {QEvent::KeyRelease, QEvent::KeyPress}) {
            QKeyEvent event(type, key, Qt::NoModifier, text, true);
            QApplication::sendEvent(QApplication::focusWidget(), &event);
        }
        QCoreApplication::processEvents();
    }
}

class HeldKeysTest : public RecoveryRootViewTestCase {
protected:
    /// Presses the key and keeps it down.
    static void hold(Qt::Key key) {
        QTest::keyPress(QApplication::focusWidget(), key);
        QCoreApplication::processEvents();
        repeat(key);
    }

    static void letGo(Qt::Key key) { QTest::keyRelease(QApplication::focusWidget(), key); }

    /// Return as a display tells of it, in milliseconds.
    static void sendReturn(QEvent::Type type, quint64 time) {
        QKeyEvent event(type, Qt::Key_Return, Qt::NoModifier);
        event.setTimestamp(time);
        QApplication::sendEvent(QApplication::focusWidget(), &event);
        QCoreApplication::processEvents();
    }

    void expectOnlyAnotherStrokeToDismissTheAlert() {
        for (const quint64 time : {1000U, 1040U}) {
            sendReturn(QEvent::KeyRelease, time);
            sendReturn(QEvent::KeyPress, time);
        }
        EXPECT_TRUE(isAlertShown());
        sendReturn(QEvent::KeyRelease, 1060);
        sendReturn(QEvent::KeyPress, 1061);
        redraw();
        EXPECT_FALSE(isAlertShown());
    }
};

TEST_F(HeldKeysTest, doNotDismissAnAlert) {
    open();
    for (const Qt::Key key : pressingKeys) {
        untilAnnounced([this] { model->acceptPackage(path("not there")); });
        redraw();
        ASSERT_TRUE(isAlertShown());
        repeat(key);
        letGo(key);
        redraw();
        EXPECT_TRUE(isAlertShown()) << key;
        press(key);
        redraw();
        EXPECT_FALSE(isAlertShown()) << key;
    }
}

TEST_F(HeldKeysTest, areRecognizedByTheirTimeIfTheToolkitReportsAnotherStroke) {
    open();
    untilAnnounced([this] { model->acceptPackage(path("not there")); });
    redraw();
    expectOnlyAnotherStrokeToDismissTheAlert();
}

TEST_F(HeldKeysTest, areRecognizedByTheirTimeIfResentForAssistiveTechnology) {
    // As the toolkit does: each key is taken, and comes back later without its time.
    class SendingOnceMore final : public QObject {
    public:
        bool eventFilter(QObject* object, QEvent* event) override {
            const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
            const auto* const key = isKey ? static_cast<const QKeyEvent*>(event) : nullptr;
            if (key == nullptr || key->timestamp() == 0) {
                return false;
            }
            QCoreApplication::postEvent(object, new QKeyEvent(key->type(), key->key(), key->modifiers()));
            return true;
        }
    } sending;
    open();
    QCoreApplication::instance()->installEventFilter(&sending);
    panels.answer = path("not there");
    untilAnnounced([] { sendReturn(QEvent::KeyPress, 500); });
    redraw();
    expectOnlyAnotherStrokeToDismissTheAlert();
}

TEST_F(HeldKeysTest, doNotDismissTheAlertThatTheyCaused) {
    open();
    panels.answer = path("not there");
    untilAnnounced([] { QTest::keyPress(QApplication::focusWidget(), Qt::Key_Return); });
    redraw();
    repeat(Qt::Key_Return);
    EXPECT_TRUE(isAlertShown());
    EXPECT_EQ(panels.openPanels.size(), 1U);
    letGo(Qt::Key_Return);
    EXPECT_TRUE(isAlertShown());
}

TEST_F(HeldKeysTest, heldReturnStopsAtTheSnapshotsAndAtTheEnd) {
    open();
    panels.answer = path("Family Photos.ambrel");
    untilAnnounced([] { hold(Qt::Key_Return); });
    letGo(Qt::Key_Return);
    redraw();
    QTest::keyClicks(&field(), QStringLiteral("secret"));
    redraw();
    hold(Qt::Key_Return);
    waitForPhase(Phase::snapshots);
    redraw();
    repeat(Qt::Key_Return);
    EXPECT_TRUE(panels.savePanels.empty());
    letGo(Qt::Key_Return);

    setEngineThatPrints(exportDocument());
    panels.answer = path("Ambrel Recovered");
    hold(Qt::Key_Return);
    waitForPhase(Phase::complete);
    redraw();
    repeat(Qt::Key_Return);
    EXPECT_TRUE(fileViewer.revealed.empty());
    EXPECT_EQ(model->phase(), Phase::complete);
}

TEST_F(HeldKeysTest, heldEscapeCancelsNothing) {
    setEngineThatWaits();
    open();
    choosePackage();
    type(QStringLiteral("x"));
    model->inspectBackup();
    waitForPhase(Phase::inspecting);
    redraw();
    repeat(Qt::Key_Escape);
    EXPECT_EQ(model->phase(), Phase::inspecting);
    press(Qt::Key_Escape);
    EXPECT_EQ(model->phase(), Phase::chooseBackup);
}

TEST_F(HeldKeysTest, pressingKeysReachNoControl) {
    class Counter final : public QObject {
    public:
        bool eventFilter(QObject* /*object*/, QEvent* event) override {
            count += event->type() == QEvent::KeyPress ? 1 : 0;
            return false;
        }
        int count = 0;
    } counter;
    open();
    inspect(inspectionDocument());
    redraw();
    for (QWidget* const control : view->findChildren<QWidget*>()) {
        if (control->isVisible() && control->isEnabled() && control->focusPolicy() != Qt::NoFocus) {
            control->setFocus();
            control->installEventFilter(&counter);
            for (const Qt::Key key : pressingKeys) {
                repeat(key);
            }
            EXPECT_EQ(counter.count, 0) << control->metaObject()->className();
        }
    }
    list().setFocus();
    repeat(Qt::Key_Down, 1);
    EXPECT_EQ(counter.count, 1);
}

TEST_F(HeldKeysTest, heldSpaceIsTypedAsOftenAsItRepeats) {
    open();
    choosePackage();
    redraw();
    ASSERT_TRUE(field().hasFocus());
    hold(Qt::Key_Space);
    EXPECT_EQ(model->credential().view(), u"    ");
    repeat(Qt::Key_Return);
    EXPECT_EQ(model->phase(), Phase::chooseBackup);
}

} // namespace
