#include "AmbrelRecoveryApp/Controls/SecureField.h"
#include "AmbrelRecoveryApp/Foundation/RecoveryAppCopy.h"
#include "AmbrelRecoveryApp/Screens/RecoveryRootView.h"
#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotList.h"
#include "RecoveryRootViewTestCase.h"
#include "ScreensTestSupport.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QRadioButton>
#include <QTest>

#include <algorithm>

namespace {

/// What can be done and read in each step, and what cannot.
class RecoveryRootViewStepsTest : public RecoveryRootViewTestCase {
protected:
    bool isShown(const QString& text) const {
        return std::ranges::any_of(view->findChildren<QLabel*>(), [&text](const QLabel* label) {
            return label->isVisible() && label->text() == text;
        });
    }

    /// Tries everything that a user has for typing a secret and choosing its kind.
    void useTheCredentialCard() {
        QTest::keyClicks(&field(), QStringLiteral("typed"));
        QGuiApplication::clipboard()->setText(QStringLiteral("pasted"));
        QTest::keyClick(&field(), Qt::Key_V, Qt::ControlModifier);
        accessible(field())->editableTextInterface()->insertText(0, QStringLiteral("dictated"));
        auto* const key = control<QRadioButton>(QStringLiteral("Recovery key"));
        QTest::mouseClick(key, Qt::LeftButton);
        QTest::keyClick(key, Qt::Key_Space);
        accessible(*key)->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    }

    void expectTheCredentialCardOutOfUse() {
        EXPECT_TRUE(field().secret().isEmpty());
        EXPECT_EQ(model->credential().view(), u"");
        EXPECT_EQ(model->factor(), AmbrelRecoveryAppFactor::backupPassphrase);
        EXPECT_TRUE(accessible(field())->state().disabled);
        EXPECT_TRUE(accessible(*control<QRadioButton>(QStringLiteral("Recovery key")))->state().disabled);
    }

    static QAccessibleInterface* accessible(QWidget& widget) { return QAccessible::queryAccessibleInterface(&widget); }
};

TEST_F(RecoveryRootViewStepsTest, theSecretAndItsKindCannotBeChangedDuringAnInspection) {
    setEngineThatWaits();
    open();
    choosePackage();
    redraw();
    QTest::keyClicks(&field(), QStringLiteral("secret"));
    redraw();
    press(Qt::Key_Return);
    // Before the next turn of the event loop.
    useTheCredentialCard();
    expectTheCredentialCardOutOfUse();
    waitForPhase(Phase::inspecting);
    redraw();
    useTheCredentialCard();
    expectTheCredentialCardOutOfUse();
    model->cancelOperation();
    redraw();
    EXPECT_TRUE(field().isEnabled());
    EXPECT_TRUE(control<QRadioButton>(QStringLiteral("Recovery key"))->isEnabled());
}

TEST_F(RecoveryRootViewStepsTest, noOtherSnapshotCanBeChosenDuringAnExport) {
    open();
    inspect(inspectionDocument());
    redraw();
    const std::optional<std::string> selected = model->selectedSnapshotCode();
    setEngineThatWaits();
    panels.answer = path("Ambrel Recovered");
    model->chooseDestinationAndExport();
    waitForPhase(Phase::exporting);
    redraw();
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {},
                      list().visualRect(list().model()->index(1, 0)).topLeft() + QPoint(40, 20));
    QTest::keyClick(&list(), Qt::Key_Down);
    QAccessibleInterface* const row = QAccessible::queryAccessibleInterface(&list())->child(1);
    EXPECT_TRUE(row->state().disabled);
    row->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    redraw();
    EXPECT_EQ(model->selectedSnapshotCode(), selected);
    EXPECT_EQ(list().currentIndex().row(), 0);
    model->cancelOperation();
    redraw();
    list().setCurrentIndex(list().model()->index(1, 0));
    EXPECT_NE(model->selectedSnapshotCode(), selected);
}

TEST_F(RecoveryRootViewStepsTest, theSnapshotsHaveAWayBackByKeyboard) {
    open();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Space}) {
        inspect(inspectionDocument());
        redraw();
        press(Qt::Key_Tab);
        EXPECT_EQ(focused(), QStringLiteral("Export"));
        press(Qt::Key_Tab);
        EXPECT_EQ(focused(), QStringLiteral("Choose another package"));
        press(key);
        redraw();
        EXPECT_EQ(model->phase(), Phase::chooseBackup);
        EXPECT_EQ(model->packageURL(), std::nullopt);
        EXPECT_EQ(focused(), QStringLiteral("Choose backup package"));
    }
}

TEST_F(RecoveryRootViewStepsTest, thereIsNoWayBackDuringAnExport) {
    open();
    inspect(inspectionDocument());
    redraw();
    EXPECT_NE(button("Choose another package"), nullptr);
    setEngineThatWaits();
    panels.answer = path("Ambrel Recovered");
    model->chooseDestinationAndExport();
    waitForPhase(Phase::exporting);
    redraw();
    EXPECT_EQ(button("Choose another package"), nullptr);
    EXPECT_EQ(focused(), QStringLiteral("Cancel"));
    model->cancelOperation();
    redraw();
    EXPECT_NE(button("Choose another package"), nullptr);
}

TEST_F(RecoveryRootViewStepsTest, aBackupWithoutSnapshotsSaysSoAndOffersTheWayBack) {
    open();
    const std::string document = inspectionDocument();
    inspect(document.substr(0, document.find(R"("snapshots":[)")) + R"("snapshots":[]})");
    redraw();
    EXPECT_TRUE(isShown(RecoveryAppCopy::text(RecoveryAppCopy::Text::noSnapshots, icu::Locale("en"))));
    EXPECT_FALSE(list().isVisible());
    EXPECT_EQ(focused(), QStringLiteral("Choose another package"));
    EXPECT_FALSE(button("Export")->isEnabled());
    inspect(inspectionDocument());
    redraw();
    EXPECT_TRUE(list().isVisible());
    EXPECT_FALSE(isShown(RecoveryAppCopy::text(RecoveryAppCopy::Text::noSnapshots, icu::Locale("en"))));
}

TEST_F(RecoveryRootViewStepsTest, saysWhatToDoUntilThereIsAPackage) {
    open();
    EXPECT_TRUE(isShown(QStringLiteral("Choose the backup, or drop it here.")));
    choosePackage();
    redraw();
    EXPECT_FALSE(isShown(QStringLiteral("Choose the backup, or drop it here.")));
    EXPECT_TRUE(isShown(QStringLiteral("Family Photos.ambrel")));
}

} // namespace
