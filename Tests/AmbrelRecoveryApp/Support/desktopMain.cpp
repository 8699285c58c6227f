#include "AmbrelLocalization/AmbrelStrings.h"

#include <QApplication>
#include <QFontInfo>
#include <gtest/gtest.h>

namespace {

/// The place of the settings is found once, and so are the fonts: neither may be in a folder that a test lets hang, or
/// depend on who runs the tests.
void findSettingsAndFonts() {
    qputenv("XDG_CONFIG_HOME", "/nowhere");
    AmbrelStrings::currentInterfaceLanguage();
    QFontInfo(QFont()).family();
}

} // namespace

int main(int argumentCount, char** arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argumentCount, arguments);
    findSettingsAndFonts();
    testing::InitGoogleTest(&argumentCount, arguments);
    return RUN_ALL_TESTS();
}
