#include "ExpectWholeTexts.h"

#include "../ScreensTestSupport.h"
#include "AmbrelRecoveryApp/Controls/TextScale.h"
#include "LayoutReview.h"
#include "ScreenWalk.h"
#include "ShownTexts.h"

#include <gtest/gtest.h>

namespace {

constexpr QSize smallestSize(880, 660);
constexpr int stateCount = 21;

} // namespace

std::string expectWholeTexts(const SystemLanguage& language, qreal scale) {
    const ScopedLanguage scope(language.tag, language.locale);
    TextScale::setFactor(scale);
    std::string texts;
    int visited = 0;
    ScreenWalk().visitEveryState(smallestSize, [&](const QString& name, RecoveryRootView& view) {
        ++visited;
        EXPECT_EQ(view.size(), smallestSize);
        for (const std::string& finding : LayoutReview::findings(view)) {
            ADD_FAILURE() << language.tag << ", " << scale << ", " << name.toStdString() << ": " << finding;
        }
        for (const ShownText& shown : ShownTexts::of(view)) {
            texts += shown.text.toStdString() + '\n';
        }
    });
    TextScale::setFactor(1);
    EXPECT_EQ(visited, stateCount);
    return texts;
}
