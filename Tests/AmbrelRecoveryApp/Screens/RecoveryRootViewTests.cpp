#include "AmbrelRecoveryApp/Screens/RecoveryRootView.h"

#include "AmbrelRecoveryApp/Controls/SecureField.h"
#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotList.h"
#include "RecoveryRootViewTestCase.h"
#include "ScreensTestSupport.h"

#include <QApplication>
#include <QRadioButton>
#include <QTest>

namespace {

/// Counts the calls that are queued for a view.
class CallCounter final : public QObject {
public:
    explicit CallCounter(QObject& view) { view.installEventFilter(this); }

    int count = 0;

protected:
    bool eventFilter(QObject* /*object*/, QEvent* event) override {
        count += event->type() == QEvent::MetaCall ? 1 : 0;
        return false;
    }
};

using RecoveryRootViewTest = RecoveryRootViewTestCase;

TEST_F(RecoveryRootViewTest, redrawsOnceInTheNextTurnHoweverManyChangesThereWere) {
    open();
    CallCounter redraws(*view);
    choosePackage();
    type(QStringLiteral("a"));
    type(QStringLiteral("ab"));
    model->setFactor(AmbrelRecoveryAppFactor::recoveryKey);
    EXPECT_EQ(redraws.count, 0);
    redraw();
    EXPECT_EQ(redraws.count, 1);
    EXPECT_EQ(field().secret().toString(), QStringLiteral("ab"));
    EXPECT_EQ(field().accessibleName(), QStringLiteral("Recovery key"));
    redraw();
    EXPECT_EQ(redraws.count, 1);
}

TEST_F(RecoveryRootViewTest, typingAndTheCursorSurviveARedraw) {
    open();
    choosePackage();
    redraw();
    QTest::keyClicks(&field(), QStringLiteral("abcd"));
    field().setCursorPosition(2);
    redraw();
    EXPECT_EQ(model->credential().view(), u"abcd");
    EXPECT_EQ(field().cursorPosition(), 2);
    EXPECT_TRUE(field().hasFocus());
    QTest::keyClick(&field(), Qt::Key_X);
    EXPECT_EQ(model->credential().view(), u"abxcd");
}

TEST_F(RecoveryRootViewTest, theInspectButtonIsEnabledOnceThereIsAPackageAndASecret) {
    open();
    EXPECT_FALSE(button("Inspect backup")->isEnabled());
    choosePackage();
    redraw();
    EXPECT_FALSE(button("Inspect backup")->isEnabled());
    QTest::keyClicks(&field(), QStringLiteral("  "));
    redraw();
    EXPECT_FALSE(button("Inspect backup")->isEnabled());
    QTest::keyClicks(&field(), QStringLiteral("x"));
    redraw();
    EXPECT_TRUE(button("Inspect backup")->isEnabled());
}

TEST_F(RecoveryRootViewTest, theFactorIsBoundBothWays) {
    open();
    QTest::mouseClick(control<QRadioButton>(QStringLiteral("Recovery key")), Qt::LeftButton);
    EXPECT_EQ(model->factor(), AmbrelRecoveryAppFactor::recoveryKey);
    redraw();
    EXPECT_EQ(field().accessibleName(), QStringLiteral("Recovery key"));
    model->setFactor(AmbrelRecoveryAppFactor::backupPassphrase);
    redraw();
    EXPECT_TRUE(control<QRadioButton>(QStringLiteral("Backup passphrase"))->isChecked());
}

TEST_F(RecoveryRootViewTest, theSecretLeavesTheFieldAtOnceWhenItIsUsed) {
    setEngineThatWaits();
    open();
    choosePackage();
    redraw();
    QTest::keyClicks(&field(), QStringLiteral("secret"));
    redraw();
    button("Inspect backup")->click();
    EXPECT_TRUE(field().secret().isEmpty());
    EXPECT_FALSE(field().isEnabled());
    QTest::keyClick(&field(), Qt::Key_X);
    EXPECT_TRUE(model->credential().view().isEmpty());
    model->cancelOperation();
}

TEST_F(RecoveryRootViewTest, aWholeRecoveryCanBeDoneByKeyboard) {
    open();
    EXPECT_EQ(focused(), QStringLiteral("Choose backup package"));
    panels.answer = path("Family Photos.ambrel");
    untilAnnounced([] { press(Qt::Key_Return); });
    redraw();
    EXPECT_EQ(focused(), QStringLiteral("Backup passphrase"));
    QTest::keyClicks(&field(), QStringLiteral("correct horse"));
    redraw();
    press(Qt::Key_Return);
    waitForPhase(Phase::snapshots);
    redraw();
    EXPECT_TRUE(list().hasFocus());
    press(Qt::Key_Home);
    redraw();
    EXPECT_TRUE(button("Export")->isEnabled());
    setEngineThatPrints(exportDocument());
    panels.answer = path("Ambrel Recovered");
    press(Qt::Key_Return);
    waitForPhase(Phase::complete);
    redraw();
    EXPECT_EQ(focused(), QStringLiteral("Show in Finder"));
    press(Qt::Key_Return);
    EXPECT_EQ(fileViewer.revealed.size(), 1U);
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), QStringLiteral("Choose another package"));
    press(Qt::Key_Return);
    redraw();
    EXPECT_EQ(model->phase(), Phase::chooseBackup);
    EXPECT_EQ(focused(), QStringLiteral("Choose backup package"));
}

TEST_F(RecoveryRootViewTest, theFirstKeyShowsTheFocus) {
    open();
    QTest::mouseClick(view.get(), Qt::LeftButton, {}, QPoint(5, 5));
    QAbstractButton* const choose = button("Choose backup package");
    EXPECT_TRUE(choose->hasFocus());
    const QImage without = choose->grab().toImage();
    press(Qt::Key_Escape);
    EXPECT_TRUE(choose->hasFocus());
    EXPECT_NE(choose->grab().toImage(), without);
    QTest::mouseClick(view.get(), Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_EQ(choose->grab().toImage(), without);
}

TEST_F(RecoveryRootViewTest, tabGoesThroughTheControlsInReadingOrder) {
    open();
    choosePackage();
    type(QStringLiteral("x"));
    redraw();
    QStringList names;
    for (int step = 0; step < 4; ++step) {
        press(Qt::Key_Tab);
        names << focused();
    }
    EXPECT_EQ(names, (QStringList{QStringLiteral("Inspect backup"), QStringLiteral("Choose backup package"),
                                  QStringLiteral("Backup passphrase"), QStringLiteral("Backup passphrase")}));
}

TEST_F(RecoveryRootViewTest, escapeCancelsARunningOperation) {
    setEngineThatWaits();
    open();
    choosePackage();
    type(QStringLiteral("x"));
    model->inspectBackup();
    waitForPhase(Phase::inspecting);
    redraw();
    EXPECT_EQ(focused(), QStringLiteral("Cancel"));
    press(Qt::Key_Return);
    EXPECT_EQ(model->phase(), Phase::inspecting);
    press(Qt::Key_Escape);
    EXPECT_EQ(model->phase(), Phase::chooseBackup);
    redraw();
    EXPECT_TRUE(field().hasFocus());
    press(Qt::Key_Escape);
    EXPECT_EQ(model->phase(), Phase::chooseBackup);
}

TEST_F(RecoveryRootViewTest, theStepBackToTheFirstScreenIsAnnounced) {
    open();
    inspect(inspectionDocument());
    exportEverything();
    redraw();
    model->startAgain();
    redraw();
    EXPECT_EQ(announced(), QStringLiteral("Choose backup package"));
}

TEST_F(RecoveryRootViewTest, choosingARowSelectsItsSnapshot) {
    open();
    inspect(inspectionDocument("unresolved-fork"));
    redraw();
    EXPECT_FALSE(model->selectedSnapshotCode());
    EXPECT_FALSE(button("Export")->isEnabled());
    list().setCurrentIndex(list().model()->index(1, 0));
    redraw();
    EXPECT_TRUE(model->selectedSnapshotCode());
    EXPECT_TRUE(button("Export")->isEnabled());
}

TEST_F(RecoveryRootViewTest, hiddenButtonsCannotBePressed) {
    const auto expectHiddenButtonsDisabled = [this](const char* when) {
        redraw();
        for (const QAbstractButton* const candidate : view->findChildren<QAbstractButton*>()) {
            if (!candidate->isVisible()) {
                EXPECT_FALSE(candidate->isEnabled()) << candidate->accessibleName().toStdString() << " " << when;
            }
        }
    };
    open();
    expectHiddenButtonsDisabled("at the start");
    inspect(inspectionDocument());
    expectHiddenButtonsDisabled("beside the snapshots");
    exportEverything();
    expectHiddenButtonsDisabled("at the end");
    model->startAgain();
    expectHiddenButtonsDisabled("at the next start");
}

TEST_F(RecoveryRootViewTest, startingAgainReleasesTheLastBackup) {
    open();
    inspect(inspectionDocument());
    redraw();
    ASSERT_GT(list().model()->rowCount(), 0);
    model->startAgain();
    redraw();
    EXPECT_EQ(list().model()->rowCount(), 0);
}

TEST_F(RecoveryRootViewTest, everyVisibleControlHasAName) {
    open();
    inspect(inspectionDocument());
    redraw();
    for (const QWidget* const widget : view->findChildren<QWidget*>()) {
        if (widget->isVisible() && widget->focusPolicy() != Qt::NoFocus) {
            EXPECT_FALSE(widget->accessibleName().isEmpty()) << widget->metaObject()->className();
        }
    }
}

TEST_F(RecoveryRootViewTest, textsFollowTheLanguageAtTheNextRedraw) {
    open();
    const ScopedLanguage german("de", "de_DE.UTF-8");
    model->setFactor(AmbrelRecoveryAppFactor::recoveryKey);
    redraw();
    EXPECT_EQ(button("Choose backup package"), nullptr);
    EXPECT_EQ(field().accessibleName(), QStringLiteral("Wiederherstellungsschlüssel"));
}

TEST_F(RecoveryRootViewTest, drawsOnADarkBackgroundWhateverThePaletteOfTheDesktop) {
    QPalette light;
    light.setColor(QPalette::Window, Qt::white);
    QApplication::setPalette(light);
    open();
    const QImage image = view->grab().toImage();
    EXPECT_EQ(image.pixelColor(240, 640).name(), QStringLiteral("#131110"));
    EXPECT_EQ(image.pixelColor(5, 5).name(), QStringLiteral("#181614"));
    QApplication::setPalette(QPalette());
}

} // namespace
