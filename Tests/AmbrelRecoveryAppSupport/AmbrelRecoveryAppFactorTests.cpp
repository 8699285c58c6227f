#include "AmbrelRecoveryAppSupport/AmbrelRecoveryAppFactor.h"

#include <gmock/gmock.h>

using enum AmbrelRecoveryAppFactor;

TEST(AmbrelRecoveryAppFactorTest, hasTheEnginesWordsAsRawValues) {
    EXPECT_EQ(rawValue(backupPassphrase), "backup-passphrase");
    EXPECT_EQ(rawValue(recoveryKey), "recovery-key");
}

TEST(AmbrelRecoveryAppFactorTest, hasTheEnginesOptionsAsCommandFlags) {
    EXPECT_EQ(commandFlag(backupPassphrase), "--backup-passphrase");
    EXPECT_EQ(commandFlag(recoveryKey), "--recovery-key");
}

TEST(AmbrelRecoveryAppFactorTest, isListedInTheOrderOfItsDeclaration) {
    EXPECT_THAT(allRecoveryAppFactors, testing::ElementsAre(backupPassphrase, recoveryKey));
}

TEST(AmbrelRecoveryAppFactorTest, isFoundByItsRawValue) {
    for (const AmbrelRecoveryAppFactor factor : allRecoveryAppFactors) {
        EXPECT_EQ(recoveryAppFactor(rawValue(factor)), factor);
    }
}

TEST(AmbrelRecoveryAppFactorTest, isFoundByNoOtherText) {
    using namespace std::string_view_literals;
    for (const std::string_view text : {""sv,
                                        " "sv,
                                        "Recovery-key"sv,
                                        "recovery-Key"sv,
                                        "RECOVERY-KEY"sv,
                                        "recovery_key"sv,
                                        "recovery key"sv,
                                        "recoverykey"sv,
                                        "recoveryKey"sv,
                                        "recovery-ke"sv,
                                        "recovery-keys"sv,
                                        " recovery-key"sv,
                                        "recovery-key "sv,
                                        "recovery-key\n"sv,
                                        "recovery-key\0"sv,
                                        "--recovery-key"sv,
                                        "-recovery-key"sv,
                                        "Backup-passphrase"sv,
                                        "backup_passphrase"sv,
                                        "backupPassphrase"sv,
                                        "--backup-passphrase"sv,
                                        "backup-passphrase,recovery-key"sv}) {
        EXPECT_EQ(recoveryAppFactor(text), std::nullopt) << text;
    }
}
