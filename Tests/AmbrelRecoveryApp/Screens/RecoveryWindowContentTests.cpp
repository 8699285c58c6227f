#include "../Support/RecoveryViewModelTestCase.h"
#include "AmbrelRecoveryApp/Controls/SecureField.h"
#include "AmbrelRecoveryApp/Controls/TextScale.h"
#include "AmbrelRecoveryApp/Screens/RecoveryRootView.h"
#include "AmbrelRecoveryApp/Screens/RecoveryWindow.h"

#include <QApplication>
#include <QPointer>
#include <QTest>
#include <gtest/gtest.h>

namespace {

class RecoveryWindowContentTest : public RecoveryViewModelTestCase {
protected:
    ~RecoveryWindowContentTest() override { TextScale::setFactor(1); }

    RecoveryRootView* showView(RecoveryWindow& window) const {
        auto* const view = new RecoveryRootView(*model);
        window.setContent(view);
        return view;
    }
};

TEST_F(RecoveryWindowContentTest, aNewViewReplacesTheOldOneAndKeepsTheFocusAndTheTypedSecret) {
    makeModel();
    choosePackage();
    RecoveryWindow window;
    const QPointer<RecoveryRootView> before = showView(window);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QTest::keyClicks(before->findChild<SecureField*>(), QStringLiteral("secret"));
    const int heightBefore = before->findChild<SecureField*>()->height();

    TextScale::setFactor(TextScale::largest);
    const RecoveryRootView* const after = showView(window);
    EXPECT_EQ(before, nullptr);
    const auto* const field = after->findChild<SecureField*>();
    EXPECT_TRUE(QTest::qWaitFor([&] { return after->isVisible() && field->hasFocus(); }, 60'000));
    EXPECT_EQ(after->size(), window.size());
    EXPECT_EQ(field->secret(), u"secret");
    EXPECT_EQ(field->height(), heightBefore * 3 / 2);
    EXPECT_TRUE(model->canInspect());
}

} // namespace
