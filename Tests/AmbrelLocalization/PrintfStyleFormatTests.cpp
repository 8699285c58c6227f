#include "AmbrelLocalization/PrintfStyleFormat.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <random>

namespace {

using PrintfStyleFormat::Kind;
using PrintfStyleFormat::Placeholder;
using PrintfStyleFormat::placeholders;

QString filled(const QString& format, std::initializer_list<std::int64_t> values, const char* locale = "en") {
    return PrintfStyleFormat::filled(format, std::vector<std::int64_t>(values), icu::Locale(locale));
}

TEST(PrintfStyleFormatTest, fillsIntegersInOrder) {
    EXPECT_EQ(filled(QStringLiteral("%lld of %lld"), {3, 10}), QStringLiteral("3 of 10"));
    EXPECT_EQ(filled(QStringLiteral("%d %i %u %ld %li %hd %hhd %zd %jd %td %qd %llu"),
                     {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}),
              QStringLiteral("1 2 3 4 5 6 7 8 9 10 11 12"));
}

TEST(PrintfStyleFormatTest, fillsIntegersByTheirPosition) {
    EXPECT_EQ(filled(QStringLiteral("%2$lld > %1$lld"), {3, 10}), QStringLiteral("10 > 3"));
    EXPECT_EQ(filled(QStringLiteral("%1$lld %1$lld"), {3}), QStringLiteral("3 3"));
    EXPECT_EQ(filled(QStringLiteral("%2$@, %1$lld"), {3, 4}), QStringLiteral("4, 3"));
    EXPECT_EQ(filled(QStringLiteral("%007$lld %99$d"), {1, 2, 3, 4, 5, 6, 7}), QStringLiteral("7 %99$d"));
}

TEST(PrintfStyleFormatTest, writesIntegersInTheDigitsOfTheLocale) {
    EXPECT_EQ(filled(QStringLiteral("%lld"), {1'234}, "de"), QStringLiteral("1.234"));
    EXPECT_EQ(filled(QStringLiteral("%lld"), {1'234}, "ar_EG"), QStringLiteral("١٬٢٣٤"));
    EXPECT_EQ(filled(QStringLiteral("%lld"), {std::numeric_limits<std::int64_t>::min()}),
              QStringLiteral("-9,223,372,036,854,775,808"));
    EXPECT_EQ(filled(QStringLiteral("%d"), {5'000'000'000}), QStringLiteral("5,000,000,000")) << "not cut off";
}

TEST(PrintfStyleFormatTest, fillsIntegersInThePlaceOfTexts) {
    EXPECT_EQ(filled(QStringLiteral("“%@”"), {7}), QStringLiteral("“7”"));
}

TEST(PrintfStyleFormatTest, writesOnePercentSignForTwo) {
    EXPECT_EQ(filled(QStringLiteral("%lld%% %%d"), {5}), QStringLiteral("5% %d"));
    EXPECT_EQ(filled(QStringLiteral("%%%lld%%"), {5}), QStringLiteral("%5%"));
}

TEST(PrintfStyleFormatTest, leavesPlaceholdersWithoutAValue) {
    EXPECT_EQ(filled(QStringLiteral("%lld of %lld"), {3}), QStringLiteral("3 of %lld"));
    EXPECT_EQ(filled(QStringLiteral("%3$lld"), {1, 2}), QStringLiteral("%3$lld"));
    EXPECT_EQ(filled(QStringLiteral("%@"), {}), QStringLiteral("%@"));
}

TEST(PrintfStyleFormatTest, ignoresSurplusValues) {
    EXPECT_EQ(filled(QStringLiteral("none"), {1, 2}), QStringLiteral("none"));
    EXPECT_EQ(filled(QString(), {1}), QString());
}

TEST(PrintfStyleFormatTest, leavesUnknownPlaceholders) {
    for (const char* format :
         {"%",        "100 %",  "%s",     "%n",       "%f",    "%p",   "%x",  "%c",
          "%5d",      "%05lld", "%-d",    "%+d",      "% d",   "%.3d", "%*d", "%1$",
          "%1$s",     "%$lld",  "%0$lld", "%100$lld", "%llld", "%l",   "%ll", "%99999999999999999999$lld",
          "%1$2$lld", "%\u00E9"}) {
        const QString text = QString::fromUtf8(format);
        EXPECT_EQ(filled(text, {1, 2}), text) << format;
    }
    EXPECT_EQ(filled(QStringLiteral("%s %lld"), {1}), QStringLiteral("%s 1")) << "it takes no value either";
}

TEST(PrintfStyleFormatTest, findsItsPlaceholders) {
    const std::vector<Placeholder> expected = {
        {0, 4, Kind::integer, 0}, {5, 2, Kind::percentSign, 0}, {8, 4, Kind::text, 2}, {13, 2, Kind::text, 1}};
    EXPECT_EQ(placeholders(QStringLiteral("%lld %% %3$@ %@ %s")), expected);
    EXPECT_TRUE(placeholders(QString()).empty());
}

TEST(PrintfStyleFormatTest, isHarmlessForAnyText) {
    std::mt19937 random(1); // NOLINT(cert-msc51-cpp): the same formats at every run
    constexpr std::u16string_view signs = u"%%%%$$@dlhs0123456789n*.- \u00E9\u65E5";
    for (int round = 0; round < 20'000; ++round) {
        QString format;
        for (auto length = random() % 12; length > 0; --length) {
            format += QChar(signs[random() % signs.size()]);
        }
        const QString result = filled(format, {1, 2});
        // Without a placeholder the text stays the same, and with some every other character stays.
        qsizetype placeholderLength = 0;
        for (const Placeholder& placeholder : placeholders(format)) {
            placeholderLength += placeholder.length;
        }
        EXPECT_GE(result.size(), format.size() - placeholderLength);
        if (placeholderLength == 0) {
            EXPECT_EQ(result, format);
        }
    }
}

} // namespace
