#include "AmbrelLocalization/AmbrelInterfaceLanguagePreferenceStore.h"
#include "AmbrelLocalization/AmbrelPseudoLocalization.h"
#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelLocalization/StringTableFile.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

#include <functional>
#include <latch>
#include <set>
#include <thread>
#include <vector>

namespace {

using namespace std::chrono_literals;
using Language = AmbrelInterfaceLanguage;

constexpr std::ptrdiff_t threadCount = 8;

/// Runs `work` on several threads that start at the same moment, and waits for them.
void onEveryThread(const std::function<void(std::ptrdiff_t)>& work) {
    std::latch start(threadCount);
    std::vector<std::jthread> threads;
    for (std::ptrdiff_t index = 0; index < threadCount; ++index) {
        threads.emplace_back([&start, &work, index] {
            start.arrive_and_wait();
            work(index);
        });
    }
}

/// Every value that is shown, formatted for one language.
QStringList everyFormat(Language language) {
    const icu::Locale locale = language.locale();
    const std::chrono::sys_time<std::chrono::milliseconds> date(1'781'430'065'000ms);
    AmbrelDateFormatStyle complete;
    complete.date = AmbrelDateFormatStyle::Date::complete;
    complete.time = AmbrelDateFormatStyle::Time::complete;
    complete.timeZone = QStringLiteral("America/New_York");
    return {AmbrelStrings::formattedNumber(-1'234'567, locale),
            AmbrelStrings::formattedProgress(3, 10'000, locale),
            AmbrelStrings::formattedPercent(0.42, locale),
            AmbrelStrings::formattedDateTime(date, locale),
            AmbrelStrings::formattedDate(date, complete, locale),
            AmbrelStrings::formattedFileSize(0, locale),
            AmbrelStrings::formattedFileSize(18'400'000'000, locale),
            AmbrelStrings::formattedDuration(90'061s, locale),
            AmbrelStrings::sentenceInitialCapitalized(QStringLiteral("istanbul"), locale),
            AmbrelPseudoLocalization::expanded(QStringLiteral("Open"), AmbrelStrings::genericCancel())};
}

class ConcurrencyTest : public testing::Test {
protected:
    ScopedLocaleVariables variables_;
    ScopedEnvironment zone_{"TZ", "Europe/Berlin"};
    std::shared_ptr<AmbrelUserDefaults> defaults_ = emptyStandardUserDefaults();
};

// The first test, so that every formatter is made while others wait for it.
TEST_F(ConcurrencyTest, formattersAreSharedByThreads) {
    const auto languages = Language::selectableLanguages();
    std::vector<std::vector<QStringList>> results(threadCount);
    onEveryThread([&](std::ptrdiff_t thread) {
        for (int round = 0; round < 3; ++round) {
            for (const Language language : languages) {
                results[static_cast<std::size_t>(thread)].push_back(everyFormat(language));
            }
        }
    });
    for (const std::vector<QStringList>& result : results) {
        ASSERT_EQ(result.size(), languages.size() * 3);
        for (std::size_t index = 0; index < result.size(); ++index) {
            EXPECT_EQ(result[index], everyFormat(languages[index % languages.size()]));
        }
    }
}

TEST_F(ConcurrencyTest, lookupsSeeOneLanguageOrTheOtherWhileItChanges) {
    const QString key = AmbrelInterfaceLanguagePreferenceStore::defaultStorageKey();
    const std::set<QString> expected = {QStringLiteral("cancel in ja"), QStringLiteral("cancel in de")};
    defaults_->setString(key, QStringLiteral("ja"));
    onEveryThread([&](std::ptrdiff_t thread) {
        for (int round = 0; round < 100; ++round) {
            if (thread == 0) {
                defaults_->setString(key, round % 2 == 0 ? QStringLiteral("de") : QStringLiteral("ja"));
            } else {
                EXPECT_TRUE(expected.contains(AmbrelStrings::localized(AmbrelStrings::genericCancel())));
                EXPECT_FALSE(AmbrelStrings::viewerPosition(thread, round).isEmpty());
            }
        }
    });
    EXPECT_EQ(AmbrelStrings::localized(AmbrelStrings::genericCancel()), QStringLiteral("cancel in ja"));
}

TEST_F(ConcurrencyTest, threadsThatSaveKeepEachOthersKeys) {
    onEveryThread([&](std::ptrdiff_t thread) {
        for (int round = 0; round < 10; ++round) {
            EXPECT_TRUE(defaults_->setString(QStringLiteral("key%1").arg(thread), QString::number(round)));
        }
    });
    for (std::ptrdiff_t thread = 0; thread < threadCount; ++thread) {
        EXPECT_EQ(defaults_->string(QStringLiteral("key%1").arg(thread)), QStringLiteral("9"));
    }
}

TEST_F(ConcurrencyTest, lookupsSeeWholeTablesWhileTheyAreReplaced) {
    const TemporaryDirectory folder;
    const auto table = [&](const char* text) {
        return std::string(R"({"first": ")") + text + R"(", "padding": ")" + std::string(50'000, 'x') +
               R"(", "second": ")" + text + R"("})";
    };
    writeInPlace(folder / "file", table("old"));
    const StringTableFile file(folder.path() / "file");
    onEveryThread([&](std::ptrdiff_t thread) {
        for (int round = 0; round < 50; ++round) {
            if (thread == 0) {
                std::filesystem::rename(writeInPlace(folder / "new", table(round % 2 == 0 ? "new" : "old")),
                                        folder.path() / "file");
            } else if (const auto current = file.current()) {
                EXPECT_EQ(current->text("first"), current->text("second"));
                EXPECT_EQ(current->size(), 3U);
            } else {
                ADD_FAILURE() << "the file is there all the time";
            }
        }
    });
}

TEST_F(ConcurrencyTest, languageListsAreMadeOnce) {
    std::vector<const void*> places(threadCount);
    onEveryThread([&](std::ptrdiff_t thread) {
        places[static_cast<std::size_t>(thread)] = AmbrelStrings::launchLocaleIdentifiers().constData();
        EXPECT_EQ(Language::selectableLanguages().size(), 14U);
        EXPECT_EQ(AmbrelStrings::resolvedSystemLocaleIdentifier({QStringLiteral("zh-TW")}), QStringLiteral("zh-Hant"));
    });
    EXPECT_EQ(std::set<const void*>(places.begin(), places.end()).size(), 1U);
}

} // namespace
