#include "AmbrelRecoveryApp/Screens/RecoveryWindow.h"

#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/SecureField.h"

#include <QApplication>
#include <QDialog>
#include <QIcon>
#include <QTest>
#include <gtest/gtest.h>

#include <cstdlib>

namespace {

/// How many pixels of the icon in this size are of the color, give or take what smoothing does.
int pixelsOf(const QIcon& icon, int size, const QColor& color) {
    const QImage image = icon.pixmap(QSize(size, size), 1.0).toImage();
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            const int distance = std::abs(pixel.red() - color.red()) + std::abs(pixel.green() - color.green()) +
                                 std::abs(pixel.blue() - color.blue());
            count += pixel.alpha() > 200 && distance < 60 ? 1 : 0;
        }
    }
    return count;
}

class RecoveryWindowTest : public testing::Test {
protected:
    RecoveryWindowTest() { window.setContent(field); }

    void open() {
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        field->setFocus();
    }

    RecoveryWindow window;
    SecureField* const field = new SecureField;
};

TEST_F(RecoveryWindowTest, hasAnIconWithAVisibleSymbolInEverySize) {
    for (const int size : {16, 24, 32, 48, 64, 128}) {
        EXPECT_TRUE(window.windowIcon().availableSizes().contains(QSize(size, size))) << size;
        EXPECT_GT(pixelsOf(window.windowIcon(), size, RecoveryPalette::copper()), size * size / 4) << size;
        EXPECT_GT(pixelsOf(window.windowIcon(), size, RecoveryPalette::onCopper()), size * size / 20) << size;
    }
}

TEST_F(RecoveryWindowTest, isKnownToTheDesktopByTheNameOfItsEntry) {
    EXPECT_EQ(QGuiApplication::desktopFileName(), QStringLiteral("com.ambrel.recovery"));
}

TEST_F(RecoveryWindowTest, isClosedByItsShortcuts) {
    open();
    for (const Qt::Key key : {Qt::Key_Q, Qt::Key_W}) {
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        QTest::keyClick(field, key, Qt::ControlModifier);
        EXPECT_FALSE(window.isVisible()) << key;
        EXPECT_TRUE(field->secret().isEmpty()) << key;
    }
}

TEST_F(RecoveryWindowTest, isNotClosedByItsShortcutsInAnOpenPanel) {
    open();
    QDialog panel(&window);
    panel.open();
    panel.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&panel));
    for (const Qt::Key key : {Qt::Key_Q, Qt::Key_W}) {
        QTest::keyClick(&panel, key, Qt::ControlModifier);
        EXPECT_TRUE(window.isVisible()) << key;
        EXPECT_TRUE(panel.isVisible()) << key;
    }
}

} // namespace
