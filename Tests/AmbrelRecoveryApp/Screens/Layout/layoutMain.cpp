#include "../ScreensTestSupport.h"

#include <QApplication>
#include <gtest/gtest.h>

int main(int argumentCount, char** arguments) {
    prepareEnvironment();
    // Whoever wants to see the layout in other fonts names them.
    if (qEnvironmentVariableIsEmpty("FONTCONFIG_FILE")) {
        qputenv("FONTCONFIG_FILE", AMBREL_FONTS);
    }
    QApplication application(argumentCount, arguments);
    testing::InitGoogleTest(&argumentCount, arguments);
    return RUN_ALL_TESTS();
}
