#include "AmbrelRecoveryApp/Model/RecoveryErrorPresentation.h"

#include "AmbrelLocalization/AmbrelStrings.h"

#include <gtest/gtest.h>

#include <ostream>

namespace {

using Kind = AmbrelRecoveryFailureKind;

struct Row {
    const char* name;
    Kind kind;
    const char* titleKey;
    const char* bodyKey;
};

// GoogleTest shows parameters through this.
void PrintTo(const Row& row, std::ostream* stream) {
    *stream << row.name;
}

class RecoveryErrorPresentationTableTest : public testing::TestWithParam<Row> {};

} // namespace

TEST_P(RecoveryErrorPresentationTableTest, givesTheTextsOfTheKind) {
    const auto error = RecoveryErrorPresentation::errorPresentation(GetParam().kind);
    EXPECT_EQ(error.title, AmbrelStrings::localized(LocalizedStringResource(GetParam().titleKey)));
    EXPECT_EQ(error.body, AmbrelStrings::localized(LocalizedStringResource(GetParam().bodyKey)));
    EXPECT_NE(error.title, GetParam().titleKey) << "the catalogue has no text";
    EXPECT_NE(error.body, GetParam().bodyKey) << "the catalogue has no text";
}

INSTANTIATE_TEST_SUITE_P(
    EveryKind, RecoveryErrorPresentationTableTest,
    testing::Values(Row{"cancelled", Kind::cancelled, "ambrel.recovery.failure.cancelled.title",
                        "ambrel.recovery.failure.cancelled.body"},
                    Row{"wrongPassphrase", Kind::wrongPassphrase, "ambrel.recovery.failure.wrong-passphrase.title",
                        "ambrel.recovery.failure.wrong-passphrase.body"},
                    Row{"wrongRecoveryKey", Kind::wrongRecoveryKey, "ambrel.recovery.failure.wrong-key.title",
                        "ambrel.recovery.failure.wrong-key.body"},
                    Row{"invalidPackage", Kind::invalidPackage, "ambrel.recovery.failure.invalid-package.title",
                        "ambrel.recovery.failure.invalid-package.body"},
                    Row{"packageUnavailable", Kind::packageUnavailable, "ambrel.recovery.failure.unavailable.title",
                        "ambrel.recovery.failure.unavailable.body"},
                    Row{"integrityFailure", Kind::integrityFailure, "ambrel.recovery.failure.integrity.title",
                        "ambrel.recovery.failure.integrity.body"},
                    Row{"destinationExists", Kind::destinationExists,
                        "ambrel.files-export.destination-unavailable.title",
                        "ambrel.files-export.destination-unavailable.body"},
                    Row{"destinationUnavailable", Kind::destinationUnavailable,
                        "ambrel.files-export.destination-unavailable.title",
                        "ambrel.files-export.destination-unavailable.body"},
                    Row{"generic", Kind::generic, "ambrel.recovery.failure.generic.title",
                        "ambrel.recovery.failure.generic.body"}));

TEST(RecoveryErrorPresentationTest, makesADistinctErrorOfEveryPresentation) {
    const auto first = RecoveryErrorPresentation::errorPresentation(Kind::wrongPassphrase);
    const auto second = RecoveryErrorPresentation::errorPresentation(Kind::wrongPassphrase);
    EXPECT_EQ(first.title, second.title);
    EXPECT_NE(first.id, second.id);
    EXPECT_NE(first, second);
}
