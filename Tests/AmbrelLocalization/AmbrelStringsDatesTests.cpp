#include "AmbrelLocalization/AmbrelInterfaceLanguage.h"
#include "AmbrelLocalization/AmbrelStrings.h"
#include "TestSupport.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

namespace {

using namespace std::chrono_literals;
using Language = AmbrelInterfaceLanguage;
using Style = AmbrelDateFormatStyle;
using Milliseconds = std::chrono::sys_time<std::chrono::milliseconds>;

/// 14 June 2026, 09:41:05 UTC
constexpr Milliseconds morning(std::chrono::sys_days(std::chrono::year(2026) / 6 / 14) + 9h + 41min + 5s);
constexpr Milliseconds evening = morning + 10h + 21min;

class FormattedDateTest : public testing::Test {
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

TEST_F(FormattedDateTest, hasTheOrderAndDigitsOfTheLanguage) {
    EXPECT_EQ(dateTime(morning, Language::english), QStringLiteral("Jun 14, 2026, 9:41\u202FAM"));
    EXPECT_EQ(dateTime(evening, Language::english), QStringLiteral("Jun 14, 2026, 8:02\u202FPM"));
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
    EXPECT_EQ(dateTime(morning, Language::simplifiedChinese), QStringLiteral("2026年6月14日 09:41"));
    EXPECT_EQ(dateTime(morning, Language::traditionalChinese), QStringLiteral("2026年6月14日 上午9:41"));
    // What the digits of Arabic are depends on the region.
    EXPECT_EQ(AmbrelStrings::formattedDateTime(morning, icu::Locale("ar_EG")), QStringLiteral("١٤ يونيو ٢٠٢٦، ٩:٤١ ص"));
}

TEST_F(FormattedDateTest, followsTheSystemsTimeZone) {
    EXPECT_EQ(dateTime(Milliseconds(0ms), Language::english), QStringLiteral("Jan 1, 1970, 12:00\u202FAM"));
    const ScopedEnvironment newYork("TZ", "America/New_York");
    EXPECT_EQ(dateTime(Milliseconds(0ms), Language::english), QStringLiteral("Dec 31, 1969, 7:00\u202FPM"));
    const ScopedEnvironment berlin("TZ", "Europe/Berlin");
    EXPECT_EQ(dateTime(Milliseconds(0ms), Language::english), QStringLiteral("Jan 1, 1970, 1:00\u202FAM"));
    EXPECT_EQ(dateTime(morning, Language::english), QStringLiteral("Jun 14, 2026, 11:41\u202FAM")) << "daylight saving";
}

/// Between the dates of `times` as the command `date` and as the application writes them, whatever differs.
std::string differencesFromTheCommand(const std::vector<std::int64_t>& times) {
    const TemporaryDirectory folder;
    std::string input;
    for (const std::int64_t time : times) {
        input += "@" + std::to_string(time) + "\n";
    }
    TestFiles::write(folder / "times", input);
    const std::string command = "LC_ALL=C date --file=" + (folder / "times").string() + " '+%b %-d, %Y, %-I:%M %p' >" +
                                (folder / "dates").string();
    EXPECT_EQ(std::system(command.c_str()), 0);

    std::istringstream written(TestFiles::read(folder / "dates"));
    std::string differences;
    for (const std::int64_t time : times) {
        std::string expected;
        std::getline(written, expected);
        const Milliseconds date{std::chrono::seconds(time)};
        const QString shown = AmbrelStrings::formattedDateTime(date, icu::Locale::getUS()).replace(u'\u202F', u' ');
        if (shown.toStdString() != expected) {
            differences.append(shown.toStdString()).append(" for ").append(expected).append("; ");
        }
    }
    return differences;
}

TEST_F(FormattedDateTest, equalsTheOutputOfTheDateCommandInEveryZone) {
    std::vector<std::string> settings = {"",
                                         "UTC0",
                                         "CET-1CEST,M3.5.0,M10.5.0/3",
                                         "EST5EDT,M3.2.0,M11.1.0",
                                         "<+0530>-5:30",
                                         "<-02>2<-01>,M3.5.0/-1,M10.5.0/0",
                                         "AEST-10AEDT,M10.1.0,M4.1.0/3",
                                         "XYZ-3:30"};
    for (const std::string zone :
         {"Africa/Cairo", "Africa/Casablanca", "America/Asuncion", "America/Mexico_City", "America/New_York",
          "America/Nuuk", "America/St_Johns", "Asia/Almaty", "Asia/Kathmandu", "Asia/Kolkata", "Australia/Lord_Howe",
          "Europe/Berlin", "Europe/Dublin", "Pacific/Apia", "Pacific/Chatham", "Etc/UTC"}) {
        const std::string path = "/usr/share/zoneinfo/" + zone;
        ASSERT_TRUE(std::filesystem::exists(path));
        settings.insert(settings.end(), {zone, ":" + zone, path, ":" + path});
    }
    // Both halves of the year, the hour in which Berlin's clocks change, before the epoch, and far off.
    const std::vector<std::int64_t> times = {1'768'478'400,  1'784'116'800,  1'774'745'999, 1'774'746'000,  0, -1,
                                             -1'000'000'000, -2'600'000'000, 4'118'000'000, 253'402'300'799};
    for (const std::string& setting : settings) {
        const ScopedEnvironment zone("TZ", setting);
        EXPECT_EQ(differencesFromTheCommand(times), "") << setting;
    }
}

TEST_F(FormattedDateTest, hasTheSystemsCalendarAndTheNamesOfTheLanguage) {
    variables_.set("LC_TIME", "th_TH.UTF-8");
    EXPECT_EQ(dateTime(morning, Language::english), QStringLiteral("Jun 14, 2569 BE, 9:41\u202FAM"));
    variables_.set("LC_TIME", "de_DE.UTF-8");
    EXPECT_EQ(dateTime(morning, Language::english), QStringLiteral("Jun 14, 2026, 9:41\u202FAM"));
}

TEST_F(FormattedDateTest, usesTheShownLanguageAndTheConventionsOfTheRegion) {
    variables_.set("LANG", "de_DE.UTF-8");
    EXPECT_EQ(dateTime(evening, Language::system), QStringLiteral("14. Juni 2026, 20:02"));
    variables_.set("LC_TIME", "en_US.UTF-8");
    EXPECT_EQ(dateTime(evening, Language::system), QStringLiteral("14. Juni 2026, 8:02\u202FPM"));
    variables_.set("LC_TIME", "de_DE.UTF-8");
    variables_.set("LANGUAGE", "en");
    EXPECT_EQ(dateTime(evening, Language::system), QStringLiteral("14 Jun 2026, 20:02"));
}

TEST_F(FormattedDateTest, isShownBeforeTheEpochAndAtTheEndsOfTime) {
    EXPECT_EQ(dateTime(Milliseconds(-1ms), Language::english), QStringLiteral("Dec 31, 1969, 11:59\u202FPM"));
    for (const auto count : {std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()}) {
        EXPECT_FALSE(dateTime(Milliseconds(std::chrono::milliseconds(count)), Language::english).isEmpty());
    }
}

TEST_F(FormattedDateTest, hasTheDatePartOfItsStyle) {
    EXPECT_EQ(formatted({.date = Style::Date::numeric, .time = Style::Time::none}), QStringLiteral("6/14/2026"));
    EXPECT_EQ(formatted({.date = Style::Date::abbreviated, .time = Style::Time::none}), QStringLiteral("Jun 14, 2026"));
    EXPECT_EQ(formatted({.date = Style::Date::longForm, .time = Style::Time::none}), QStringLiteral("June 14, 2026"));
    EXPECT_EQ(formatted({.date = Style::Date::complete, .time = Style::Time::none}),
              QStringLiteral("Sunday, June 14, 2026"));
}

TEST_F(FormattedDateTest, hasTheTimePartOfItsStyle) {
    EXPECT_EQ(formatted({.date = Style::Date::none, .time = Style::Time::shortened}), QStringLiteral("9:41\u202FAM"));
    EXPECT_EQ(formatted({.date = Style::Date::none, .time = Style::Time::standard}), QStringLiteral("9:41:05\u202FAM"));
    // ICU 78 writes the offset even if it is zero.
    EXPECT_THAT(formatted({.date = Style::Date::none, .time = Style::Time::complete}),
                testing::AnyOf(QStringLiteral("9:41:05\u202FAM GMT"), QStringLiteral("9:41:05\u202FAM GMT+0")));
}

TEST_F(FormattedDateTest, hasBothPartsIfItsStyleHasNeither) {
    EXPECT_EQ(formatted({.date = Style::Date::none, .time = Style::Time::none}),
              QStringLiteral("6/14/2026, 9:41\u202FAM"));
    EXPECT_EQ(formatted({}), QStringLiteral("6/14/2026, 9:41\u202FAM"));
}

TEST_F(FormattedDateTest, hasTheTimeZoneOfItsStyle) {
    Style style{.date = Style::Date::none, .time = Style::Time::shortened, .timeZone = QStringLiteral("Asia/Tokyo")};
    EXPECT_EQ(formatted(style), QStringLiteral("6:41\u202FPM"));
    style.timeZone = QStringLiteral("no/such place");
    EXPECT_EQ(formatted(style), QStringLiteral("9:41\u202FAM"));
    style.timeZone = QString();
    EXPECT_EQ(formatted(style), QStringLiteral("9:41\u202FAM"));
}

TEST_F(FormattedDateTest, keepsCalendarAndLocaleNamesApart) {
    Style style{.date = Style::Date::longForm, .time = Style::Time::none, .calendar = QStringLiteral("buddhist")};
    EXPECT_EQ(AmbrelStrings::formattedDate(morning, style, icu::Locale("en")), QStringLiteral("June 14, 2569 BE"));
    // The same letters, were both names only written one after the other.
    style.calendar = QStringLiteral("buddhis");
    EXPECT_FALSE(AmbrelStrings::formattedDate(morning, style, icu::Locale("ten")).contains(QStringLiteral("2569")));
}

TEST_F(FormattedDateTest, hasTheCalendarOfItsStyle) {
    Style style{.date = Style::Date::longForm, .time = Style::Time::none, .calendar = QStringLiteral("japanese")};
    EXPECT_EQ(formatted(style, Language::japanese), QStringLiteral("令和8年6月14日"));
    style.calendar = QStringLiteral("no calendar");
    EXPECT_EQ(formatted(style), QStringLiteral("June 14, 2026"));
    style.calendar = QString(10'000, u'x');
    EXPECT_EQ(formatted(style), QStringLiteral("June 14, 2026"));
}

TEST_F(FormattedDateTest, isCapitalizedForTheContextOfItsStyle) {
    Style style{.date = Style::Date::complete, .time = Style::Time::none};
    EXPECT_EQ(formatted(style, Language::french), QStringLiteral("dimanche 14 juin 2026"));
    style.capitalizationContext = Style::CapitalizationContext::beginningOfSentence;
    EXPECT_EQ(formatted(style, Language::french), QStringLiteral("Dimanche 14 juin 2026"));
    style.capitalizationContext = Style::CapitalizationContext::middle;
    EXPECT_EQ(formatted(style, Language::french), QStringLiteral("dimanche 14 juin 2026"));
}

TEST_F(FormattedDateTest, isShownForAnyLocale) {
    EXPECT_FALSE(AmbrelStrings::formattedDateTime(morning, icu::Locale("xx_YY")).isEmpty());
    EXPECT_FALSE(AmbrelStrings::formattedDateTime(morning, icu::Locale::getRoot()).isEmpty());
}

} // namespace
