// The values of one snapshot row: two numbers, a size and a date, with cached and with new formatters.

#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelLocalization/IcuText.h"

#include <QDateTime>
#include <QLocale>
#include <benchmark/benchmark.h>
#include <unicode/datefmt.h>
#include <unicode/dtptngen.h>
#include <unicode/measunit.h>
#include <unicode/numberformatter.h>
#include <unicode/smpdtfmt.h>

#include <cstddef>
#include <memory>

namespace {

constexpr std::int64_t itemCount = 4'812;
constexpr std::int64_t fileCount = 9'630;
constexpr std::int64_t byteCount = 18'400'000'000;
constexpr std::int64_t milliseconds = 1'781'430'060'000;

void rowAmbrel(benchmark::State& state) {
    const icu::Locale locale = icu::Locale::getGermany();
    const std::chrono::sys_time<std::chrono::milliseconds> date{std::chrono::milliseconds(milliseconds)};
    for (auto _ : state) {
        benchmark::DoNotOptimize(AmbrelStrings::formattedNumber(itemCount, locale));
        benchmark::DoNotOptimize(AmbrelStrings::formattedNumber(fileCount, locale));
        benchmark::DoNotOptimize(AmbrelStrings::formattedFileSize(byteCount, locale));
        benchmark::DoNotOptimize(AmbrelStrings::formattedDateTime(date, locale));
    }
}
BENCHMARK(rowAmbrel);

void formatNumbersAnew(const icu::Locale& locale) {
    using icu::number::NumberFormatter;
    UErrorCode status = U_ZERO_ERROR;
    for (const std::int64_t count : {itemCount, fileCount}) {
        const auto number = NumberFormatter::withLocale(locale).formatInt(count, status);
        benchmark::DoNotOptimize(IcuText::toQString(number.toString(status)));
    }
    const auto size = NumberFormatter::withLocale(locale)
                          .unit(icu::MeasureUnit::getGigabyte())
                          .unitWidth(UNUM_UNIT_WIDTH_SHORT)
                          .precision(icu::number::Precision::maxFraction(2))
                          .formatDouble(static_cast<double>(byteCount) / 1e9, status);
    benchmark::DoNotOptimize(IcuText::toQString(size.toString(status)));
}

void formatDateAnew(const icu::DateFormat& format) {
    icu::UnicodeString text;
    format.format(static_cast<double>(milliseconds), text);
    benchmark::DoNotOptimize(IcuText::toQString(text));
}

// The date in one of ICU's four predefined styles. They are faster to create, but have no abbreviated month in German.
void rowNewFormattersOfFixedStyle(benchmark::State& state) {
    const icu::Locale locale = icu::Locale::getGermany();
    for (auto _ : state) {
        formatNumbersAnew(locale);
        const std::unique_ptr<icu::DateFormat> format(
            icu::DateFormat::createDateTimeInstance(icu::DateFormat::kMedium, icu::DateFormat::kShort, locale));
        formatDateAnew(*format);
    }
}
BENCHMARK(rowNewFormattersOfFixedStyle);

void rowNewFormattersOfThisStyle(benchmark::State& state) {
    const icu::Locale locale = icu::Locale::getGermany();
    for (auto _ : state) {
        formatNumbersAnew(locale);
        UErrorCode status = U_ZERO_ERROR;
        const std::unique_ptr<icu::DateTimePatternGenerator> generator(
            icu::DateTimePatternGenerator::createInstance(locale, status));
        formatDateAnew(icu::SimpleDateFormat(generator->getBestPattern(u"yMMMdjm", status), locale, status));
    }
}
BENCHMARK(rowNewFormattersOfThisStyle);

void rowQLocale(benchmark::State& state) {
    const QLocale locale(QLocale::German, QLocale::Germany);
    for (auto _ : state) {
        benchmark::DoNotOptimize(locale.toString(qint64{itemCount}));
        benchmark::DoNotOptimize(locale.toString(qint64{fileCount}));
        benchmark::DoNotOptimize(locale.formattedDataSize(byteCount, 1, QLocale::DataSizeSIFormat));
        benchmark::DoNotOptimize(locale.toString(QDateTime::fromMSecsSinceEpoch(milliseconds), QLocale::ShortFormat));
    }
}
BENCHMARK(rowQLocale);

// Each language once: the cost of its formatter at the first picture.
void firstDateOfALanguage(benchmark::State& state) {
    const auto languages = AmbrelInterfaceLanguage::selectableLanguages();
    std::size_t next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(AmbrelStrings::formattedDateTime({}, languages[next].locale()));
        ++next;
    }
}
BENCHMARK(firstDateOfALanguage)->Iterations(14)->Unit(benchmark::kMicrosecond);

} // namespace
