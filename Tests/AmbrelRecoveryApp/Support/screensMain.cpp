#include "AmbrelRecoveryApp/Screens/RecoveryAccessibility.h"
#include "TestEnvironment.h"

#include <QApplication>
#include <gtest/gtest.h>

int main(int argumentCount, char** arguments) {
    prepareEnvironment();
    QApplication application(argumentCount, arguments);
    RecoveryAccessibility::install();
    testing::InitGoogleTest(&argumentCount, arguments);
    return RUN_ALL_TESTS();
}
