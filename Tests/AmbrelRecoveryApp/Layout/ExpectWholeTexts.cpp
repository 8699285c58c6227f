#include "ExpectWholeTexts.h"

#include "../Screens/ScreensTestSupport.h"
#include "LayoutReview.h"
#include "ScreenWalk.h"
#include "ShownTexts.h"

#include <gtest/gtest.h>

namespace {

constexpr QSize smallestSize(880, 660);
constexpr int stateCount = 21;

} // namespace

std::string expectWholeTexts(const SystemLanguage& language) {
    const ScopedLanguage scope(language.tag, language.locale);
    std::string texts;
    int visited = 0;
    ScreenWalk().visitEveryState(smallestSize, [&](const QString& name, RecoveryRootView& view) {
        ++visited;
        EXPECT_EQ(view.size(), smallestSize);
        for (const std::string& finding : LayoutReview::findings(view)) {
            ADD_FAILURE() << language.tag << ", " << name.toStdString() << ": " << finding;
        }
        for (const ShownText& shown : ShownTexts::of(view)) {
            texts += shown.text.toStdString() + '\n';
        }
    });
    EXPECT_EQ(visited, stateCount);
    return texts;
}
