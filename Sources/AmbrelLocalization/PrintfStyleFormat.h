#pragma once

#include <QString>
#include <unicode/locid.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/// Fills in the catalogue's formats. They look like printf formats but are parsed here: an unknown placeholder, or one
/// without a value, stays in the text unchanged. May be used on any thread.
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

/// Returns the placeholders of `format` in order. Flags, widths and precisions are not supported. Text that is not
/// valid UTF-16 has no placeholders.
std::vector<Placeholder> placeholders(const QString& format);

/// Returns `format` with its placeholders filled in with integers, as formatted by `AmbrelStrings::formattedNumber` for
/// `locale`. Surplus values are ignored.
QString filled(const QString& format, std::span<const std::int64_t> values, const icu::Locale& locale);

} // namespace PrintfStyleFormat
