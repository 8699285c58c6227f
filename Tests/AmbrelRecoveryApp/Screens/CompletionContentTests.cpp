#include "AmbrelRecoveryApp/Screens/CompletionContent.h"

#include "AmbrelRecoveryApp/Screens/ErrorAlertContent.h"
#include "ScreensTestSupport.h"

#include <gtest/gtest.h>

namespace {

using Phase = RecoveryScreenState::Phase;

TEST(CompletionContentTest, showsHowManyItemsWereRecovered) {
    RecoveryScreenState state = stateIn(Phase::complete);
    state.exportResult = exportResult({.totalItemCount = 5000, .recoveredItemCount = 4812, .failedResourceCount = 3});
    const CompletionContent content = completionContent(state);
    EXPECT_EQ(content.title, QStringLiteral("Export complete"));
    EXPECT_EQ(content.exported, QStringLiteral("Exported: 4,812"));
    EXPECT_EQ(content.revealLabel, QStringLiteral("Show in Finder"));
    EXPECT_EQ(content.chooseAnotherLabel, QStringLiteral("Choose another package"));
}

TEST(CompletionContentTest, lacksOnlyTheCountWithoutAReport) {
    const CompletionContent content = completionContent(stateIn(Phase::complete));
    EXPECT_EQ(content.exported, std::nullopt);
    EXPECT_FALSE(content.revealLabel.isEmpty());
    EXPECT_FALSE(content.chooseAnotherLabel.isEmpty());
}

TEST(CompletionContentTest, showsZeroRecoveredItemsInTheDigitsOfTheLocale) {
    RecoveryScreenState state = stateIn(Phase::complete);
    state.exportResult = exportResult({});
    EXPECT_EQ(completionContent(state).exported, QStringLiteral("Exported: 0"));
    {
        const ScopedLanguage german("de", "de_DE.UTF-8");
        EXPECT_EQ(completionContent(state).exported, QStringLiteral("Exportiert: 0"));
    }
    const ScopedLanguage arabic("ar", "ar_EG.UTF-8");
    EXPECT_EQ(completionContent(state).exported, QStringLiteral("العناصر المصدَّرة: ٠"));
}

TEST(CompletionContentTest, followsTheLanguage) {
    const ScopedLanguage german("de", "de_DE.UTF-8");
    EXPECT_EQ(completionContent(stateIn(Phase::complete)).revealLabel, QStringLiteral("Im Finder anzeigen"));
}

TEST(ErrorAlertContentTest, isAbsentWithoutAnError) {
    EXPECT_EQ(errorAlertContent(RecoveryScreenState()), std::nullopt);
}

TEST(ErrorAlertContentTest, showsTheErrorInEveryPhase) {
    for (const Phase phase : allPhases) {
        RecoveryScreenState state = stateIn(phase);
        state.presentedError = {QUuid::createUuid(), QStringLiteral("Title"), QStringLiteral("Body")};
        const std::optional<ErrorAlertContent> content = errorAlertContent(state);
        ASSERT_TRUE(content);
        EXPECT_EQ(content->title, QStringLiteral("Title"));
        EXPECT_EQ(content->body, QStringLiteral("Body"));
        EXPECT_EQ(content->okayLabel, QStringLiteral("OK"));
    }
}

TEST(ErrorAlertContentTest, theSameErrorShownTwiceIsTwoAlerts) {
    RecoveryScreenState state;
    state.presentedError = {QUuid::createUuid(), QStringLiteral("Title"), QStringLiteral("Body")};
    const std::optional<ErrorAlertContent> first = errorAlertContent(state);
    state.presentedError->id = QUuid::createUuid();
    EXPECT_NE(errorAlertContent(state), first);
}

TEST(ErrorAlertContentTest, onlyTheButtonFollowsALaterChangeOfLanguage) {
    RecoveryScreenState state;
    state.presentedError = {QUuid::createUuid(), QStringLiteral("Title"), QStringLiteral("Body")};
    const ScopedLanguage korean("ko", "ko_KR.UTF-8");
    const std::optional<ErrorAlertContent> content = errorAlertContent(state);
    ASSERT_TRUE(content);
    EXPECT_EQ(content->title, QStringLiteral("Title"));
    EXPECT_EQ(content->okayLabel, QStringLiteral("확인"));
}

} // namespace
