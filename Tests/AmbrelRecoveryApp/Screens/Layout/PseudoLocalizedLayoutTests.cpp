#include "ExpectWholeTexts.h"

#include <gtest/gtest.h>

namespace {

TEST(PseudoLocalizedLayoutTest, everyTextIsShownInFullAtTheSmallestSize) {
    const std::string texts = expectWholeTexts(systemLanguages.front());
    // “Snapshots”, by which it is known that the pseudo-localized table was found.
    EXPECT_NE(texts.find("⟦Šñːåþːšħːöţːš⟧"), std::string::npos);
}

TEST(PseudoLocalizedLayoutTest, everyTextIsShownInFullIfTextsAreEnlarged) {
    expectWholeTexts(systemLanguages.front(), 1.5);
}

} // namespace
