#pragma once

#include <QString>
#include <QStringView>
#include <unicode/locid.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <variant>
#include <vector>

/// Filling in the catalogue's formats. They look like those of printf, but are only ever read: a placeholder that is
/// not understood, or that no value fits, stays in the text as it is written. May be used on any thread.
namespace PrintfStyleFormat {

enum class Kind : std::uint8_t {
    /// %d, %i or %u with any length modifier, such as %lld
    integer,
    /// %@
    text,
    /// %%
    percentSign,
};

struct Placeholder {
    /// Where the placeholder stands in the format, in UTF-16 code units.
    qsizetype start = 0;
    qsizetype length = 0;
    Kind kind = Kind::percentSign;
    /// Which value it takes, counted from 0; of no meaning for a percent sign. Placeholders without a position of
    /// their own ("%2$lld" has one) take one value after the other.
    std::size_t value = 0;

    friend bool operator==(const Placeholder&, const Placeholder&) = default;
};

/// The placeholders of `format` in their order. Flags, widths and precisions are not understood.
std::vector<Placeholder> placeholders(QStringView format);

using Value = std::variant<std::int64_t, QString>;

/// `format` with its placeholders filled in: integers as `AmbrelStrings::formattedNumber` gives them under `locale`,
/// texts unchanged. A %@ takes an integer too. Surplus values are left out.
QString filled(QStringView format, std::span<const Value> values, const icu::Locale& locale);

} // namespace PrintfStyleFormat
