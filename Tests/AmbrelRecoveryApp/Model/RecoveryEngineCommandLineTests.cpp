#include "AmbrelRecoveryApp/Model/RecoveryEngineCommandLine.h"

#include <gtest/gtest.h>

using Arguments = std::vector<std::string>;

TEST(RecoveryEngineCommandLineTest, inspectsWithTheFactorInThirdPlace) {
    EXPECT_EQ(RecoveryEngineCommandLine::inspectArguments("/a b/c.ambrel", AmbrelRecoveryAppFactor::backupPassphrase),
              (Arguments{"inspect", "/a b/c.ambrel", "--backup-passphrase", "--credential-stdin"}));
    EXPECT_EQ(RecoveryEngineCommandLine::inspectArguments("/c.ambrel", AmbrelRecoveryAppFactor::recoveryKey),
              (Arguments{"inspect", "/c.ambrel", "--recovery-key", "--credential-stdin"}));
}

TEST(RecoveryEngineCommandLineTest, exportsWithTheFactorInSeventhPlace) {
    EXPECT_EQ(RecoveryEngineCommandLine::exportArguments("/c.ambrel", "-code", "/new folder",
                                                         AmbrelRecoveryAppFactor::recoveryKey),
              (Arguments{"export", "/c.ambrel", "--snapshot", "-code", "--destination", "/new folder", "--recovery-key",
                         "--credential-stdin"}));
}

TEST(RecoveryEngineCommandLineTest, testsItselfWithOneArgument) {
    EXPECT_EQ(RecoveryEngineCommandLine::selfTestArguments(), Arguments{"self-test"});
}
