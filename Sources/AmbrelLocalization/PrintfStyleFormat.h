#pragma once

#include <QString>
#include <QStringView>
#include <unicode/locid.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <variant>
#include <vector>

/// Fills in the catalogue's formats. They look like printf formats but are parsed here: an unknown placeholder, or one
/// without a matching value, stays in the text unchanged. May be used on any thread.
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
    /// The position of the placeholder in the format, in UTF-16 code units.
    qsizetype start = 0;
    qsizetype length = 0;
    Kind kind = Kind::percentSign;
    /// The index of the value, from 0; meaningless for a percent sign. Placeholders without an explicit position (as in
    /// "%2$lld") take the values in order.
    std::size_t value = 0;

    friend bool operator==(const Placeholder&, const Placeholder&) = default;
};

/// Returns the placeholders of `format` in order. Flags, widths and precisions are not supported.
std::vector<Placeholder> placeholders(QStringView format);

using Value = std::variant<std::int64_t, QString>;

/// Returns `format` with its placeholders filled in: integers as formatted by `AmbrelStrings::formattedNumber` for
/// `locale`, texts unchanged. A %@ accepts an integer, too. Surplus values are ignored.
QString filled(QStringView format, std::span<const Value> values, const icu::Locale& locale);

} // namespace PrintfStyleFormat
