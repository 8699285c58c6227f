#include "AmbrelLocalization/AmbrelInterfaceLanguage.h"
#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelLocalization/SystemTimeZone.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace std::chrono_literals;
using Language = AmbrelInterfaceLanguage;
using Style = AmbrelDateFormatStyle;
using Milliseconds = std::chrono::sys_time<std::chrono::milliseconds>;

/// 14 June 2026, 09:41:05 UTC
constexpr Milliseconds morning(std::chrono::sys_days(std::chrono::year(2026) / 6 / 14) + 9h + 41min + 5s);
constexpr Milliseconds evening = morning + 10h + 21min;

class FormattedDate : public testing::Test {
protected:
    static QString dateTime(Milliseconds date, Language language) {
        return AmbrelStrings::formattedDateTime(date, language.locale());
    }

    static QString formatted(const Style& style, Language language = Language::english) {
        return AmbrelStrings::formattedDate(morning, style, language.locale());
    }

    ScopedLocaleVariables variables_;
    ScopedEnvironment zone_{"TZ", "UTC"};
};

TEST_F(FormattedDate, andTimeHaveTheOrderAndTheDigitsOfTheLanguage) {
    EXPECT_EQ(dateTime(morning, Language::english), QStringLiteral("Jun 14, 2026, 9:41 AM"));
    EXPECT_EQ(dateTime(evening, Language::english), QStringLiteral("Jun 14, 2026, 8:02 PM"));
    EXPECT_EQ(dateTime(morning, Language::spanish), QStringLiteral("14 jun 2026, 9:41"));
    EXPECT_EQ(dateTime(morning, Language::brazilianPortuguese), QStringLiteral("14 de jun. de 2026, 09:41"));
    EXPECT_EQ(dateTime(morning, Language::german), QStringLiteral("14. Juni 2026, 09:41"));
    EXPECT_EQ(dateTime(morning, Language::french), QStringLiteral("14 juin 2026, 09:41"));
    EXPECT_EQ(dateTime(morning, Language::italian), QStringLiteral("14 giu 2026, 09:41"));
    EXPECT_EQ(dateTime(morning, Language::japanese), QStringLiteral("2026年6月14日 9:41"));
    EXPECT_EQ(dateTime(morning, Language::korean), QStringLiteral("2026년 6월 14일 오전 9:41"));
    EXPECT_EQ(dateTime(morning, Language::russian), QStringLiteral("14 июн. 2026\u202Fг., 09:41"));
    EXPECT_EQ(dateTime(morning, Language::polish), QStringLiteral("14 cze 2026, 09:41"));
    EXPECT_EQ(dateTime(morning, Language::turkish), QStringLiteral("14 Haz 2026 09:41"));
    EXPECT_EQ(dateTime(morning, Language::arabic), QStringLiteral("١٤ يونيو ٢٠٢٦، ٩:٤١ ص"));
    EXPECT_EQ(dateTime(morning, Language::simplifiedChinese), QStringLiteral("2026年6月14日 09:41"));
    EXPECT_EQ(dateTime(morning, Language::traditionalChinese), QStringLiteral("2026年6月14日 上午9:41"));
}

TEST_F(FormattedDate, followsTheSystemsTimeZone) {
    EXPECT_EQ(dateTime(Milliseconds(0ms), Language::english), QStringLiteral("Jan 1, 1970, 12:00 AM"));
    const ScopedEnvironment newYork("TZ", "America/New_York");
    EXPECT_EQ(dateTime(Milliseconds(0ms), Language::english), QStringLiteral("Dec 31, 1969, 7:00 PM"));
    const ScopedEnvironment berlin("TZ", "Europe/Berlin");
    EXPECT_EQ(dateTime(Milliseconds(0ms), Language::english), QStringLiteral("Jan 1, 1970, 1:00 AM"));
    EXPECT_EQ(dateTime(morning, Language::english), QStringLiteral("Jun 14, 2026, 11:41 AM")) << "daylight saving";
}

TEST_F(FormattedDate, followsTheSystemsCalendarWithTheNamesOfTheLanguage) {
    variables_.set("LC_TIME", "th_TH.UTF-8");
    EXPECT_EQ(dateTime(morning, Language::english), QStringLiteral("Jun 14, 2569 BE, 9:41 AM"));
    variables_.set("LC_TIME", "de_DE.UTF-8");
    EXPECT_EQ(dateTime(morning, Language::english), QStringLiteral("Jun 14, 2026, 9:41 AM"));
}

TEST_F(FormattedDate, isInTheLanguageShownAndInTheWayOfTheSystemsRegion) {
    variables_.set("LANG", "de_DE.UTF-8");
    EXPECT_EQ(dateTime(evening, Language::system), QStringLiteral("14. Juni 2026, 20:02"));
    variables_.set("LC_TIME", "en_US.UTF-8");
    EXPECT_EQ(dateTime(evening, Language::system), QStringLiteral("14. Juni 2026, 8:02 PM"));
    variables_.set("LC_TIME", "de_DE.UTF-8");
    variables_.set("LANGUAGE", "en");
    EXPECT_EQ(dateTime(evening, Language::system), QStringLiteral("14 Jun 2026, 20:02"));
}

TEST_F(FormattedDate, isShownBeforeTheEpochAndAtTheEndsOfTime) {
    EXPECT_EQ(dateTime(Milliseconds(-1ms), Language::english), QStringLiteral("Dec 31, 1969, 11:59 PM"));
    for (const auto count : {std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()}) {
        EXPECT_FALSE(dateTime(Milliseconds(std::chrono::milliseconds(count)), Language::english).isEmpty());
    }
}

TEST_F(FormattedDate, hasTheDatePartOfItsStyle) {
    EXPECT_EQ(formatted({.date = Style::Date::numeric, .time = Style::Time::none}), QStringLiteral("6/14/2026"));
    EXPECT_EQ(formatted({.date = Style::Date::abbreviated, .time = Style::Time::none}), QStringLiteral("Jun 14, 2026"));
    EXPECT_EQ(formatted({.date = Style::Date::longForm, .time = Style::Time::none}), QStringLiteral("June 14, 2026"));
    EXPECT_EQ(formatted({.date = Style::Date::complete, .time = Style::Time::none}),
              QStringLiteral("Sunday, June 14, 2026"));
}

TEST_F(FormattedDate, hasTheTimePartOfItsStyle) {
    EXPECT_EQ(formatted({.date = Style::Date::none, .time = Style::Time::shortened}), QStringLiteral("9:41 AM"));
    EXPECT_EQ(formatted({.date = Style::Date::none, .time = Style::Time::standard}), QStringLiteral("9:41:05 AM"));
    EXPECT_EQ(formatted({.date = Style::Date::none, .time = Style::Time::complete}), QStringLiteral("9:41:05 AM UTC"));
}

TEST_F(FormattedDate, hasBothPartsWhereItsStyleHasNeither) {
    EXPECT_EQ(formatted({.date = Style::Date::none, .time = Style::Time::none}), QStringLiteral("6/14/2026, 9:41 AM"));
    EXPECT_EQ(formatted({}), QStringLiteral("6/14/2026, 9:41 AM"));
}

TEST_F(FormattedDate, keepsTheTimeZoneOfItsStyle) {
    Style style{.date = Style::Date::none, .time = Style::Time::shortened, .timeZone = QStringLiteral("Asia/Tokyo")};
    EXPECT_EQ(formatted(style), QStringLiteral("6:41 PM"));
    style.timeZone = QStringLiteral("no/such place");
    EXPECT_EQ(formatted(style), QStringLiteral("9:41 AM"));
    style.timeZone = QString();
    EXPECT_EQ(formatted(style), QStringLiteral("9:41 AM"));
}

TEST_F(FormattedDate, tellsNamesFromEachOtherWhateverTheyHold) {
    const ScopedEnvironment tokyo("TZ", "Asia/Tokyo");
    Style style{.date = Style::Date::none, .time = Style::Time::shortened};
    EXPECT_EQ(formatted(style), QStringLiteral("6:41 PM"));
    // A name that is no zone is UTC, even one that looks like the formatting's own name for the system's zone.
    const std::uint64_t revision = SystemTimeZone::current().revision;
    for (const QString& pattern : {QStringLiteral("%1"), QStringLiteral("#%1"), QStringLiteral("|%1"),
                                   QStringLiteral("%1|"), QStringLiteral("named")}) {
        style.timeZone = pattern.contains(u'%') ? pattern.arg(revision) : pattern;
        EXPECT_EQ(formatted(style), QStringLiteral("9:41 AM")) << style.timeZone->toStdString();
    }
    Style calendarWithZone = style;
    calendarWithZone.calendar = QStringLiteral("gregorian|Asia/Tokyo");
    calendarWithZone.timeZone = QStringLiteral("x");
    EXPECT_EQ(formatted(calendarWithZone), QStringLiteral("9:41 AM"));
    calendarWithZone.calendar = QStringLiteral("gregorian");
    calendarWithZone.timeZone = QStringLiteral("Asia/Tokyo|x");
    EXPECT_EQ(formatted(calendarWithZone), QStringLiteral("9:41 AM"));
    calendarWithZone.timeZone = QStringLiteral("Asia/Tokyo");
    EXPECT_EQ(formatted(calendarWithZone), QStringLiteral("6:41 PM"));
}

TEST_F(FormattedDate, keepsTheCalendarOfItsStyle) {
    Style style{.date = Style::Date::longForm, .time = Style::Time::none, .calendar = QStringLiteral("japanese")};
    EXPECT_EQ(formatted(style, Language::japanese), QStringLiteral("令和8年6月14日"));
    style.calendar = QStringLiteral("no calendar");
    EXPECT_EQ(formatted(style), QStringLiteral("June 14, 2026"));
    style.calendar = QString(10'000, u'x');
    EXPECT_EQ(formatted(style), QStringLiteral("June 14, 2026"));
}

TEST_F(FormattedDate, keepsTheCapitalizationContextOfItsStyle) {
    Style style{.date = Style::Date::complete, .time = Style::Time::none};
    EXPECT_EQ(formatted(style, Language::french), QStringLiteral("dimanche 14 juin 2026"));
    style.capitalizationContext = Style::CapitalizationContext::beginningOfSentence;
    EXPECT_EQ(formatted(style, Language::french), QStringLiteral("Dimanche 14 juin 2026"));
    style.capitalizationContext = Style::CapitalizationContext::middle;
    EXPECT_EQ(formatted(style, Language::french), QStringLiteral("dimanche 14 juin 2026"));
}

TEST_F(FormattedDate, isShownForAnyLocale) {
    EXPECT_FALSE(AmbrelStrings::formattedDateTime(morning, icu::Locale("xx_YY")).isEmpty());
    EXPECT_FALSE(AmbrelStrings::formattedDateTime(morning, icu::Locale::getRoot()).isEmpty());
}

} // namespace
