#include "Format/PackageHeader.h"

#include "Common/Failure.h"
#include "Common/Hexadecimal.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <optional>
#include <string_view>
#include <system_error>

namespace {

constexpr std::string_view firstLine = "ambrel stand-in package";
constexpr std::string_view note = "Written by the stand-in recovery engine. It stands in for the product's engine, "
                                  "which cannot read this package.";

Failure invalid(const char* detail) {
    return Failure(FailureReason::packageInvalid, detail);
}

std::string_view takeLine(std::string_view& rest) {
    const std::size_t end = rest.find('\n');
    if (end == std::string_view::npos) {
        throw invalid("the header has an open line");
    }
    const std::string_view line = rest.substr(0, end);
    rest.remove_prefix(end + 1);
    return line;
}

std::string_view takeField(std::string_view& rest, std::string_view name) {
    std::string_view line = takeLine(rest);
    if (!line.starts_with(name) || !line.substr(name.size()).starts_with(": ")) {
        throw invalid("the header lacks a field");
    }
    return line.substr(name.size() + 2);
}

std::uint64_t versionFrom(std::string_view text) {
    std::uint64_t version = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), version);
    if (error != std::errc() || end != text.data() + text.size()) {
        throw invalid("the header has no version number");
    }
    return version;
}

} // namespace

std::string PackageHeader::encode() const {
    std::string text(firstLine);
    text += "\nversion: " + std::to_string(version);
    text += "\npackage: " + Hexadecimal::encode(package);
    text += "\nnote: ";
    text += note;
    text += "\n";
    return text;
}

PackageHeader PackageHeader::decode(ByteView bytes) {
    std::string_view rest(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    if (takeLine(rest) != firstLine) {
        throw invalid("not a package of the stand-in engine");
    }
    PackageHeader header;
    header.version = versionFrom(takeField(rest, "version"));
    if (header.version != supportedVersion) {
        throw invalid("the package has another version");
    }
    const std::optional<Bytes> identifier = Hexadecimal::decode(takeField(rest, "package"));
    if (!identifier || identifier->size() != header.package.size()) {
        throw invalid("the header has no package identifier");
    }
    std::ranges::copy(*identifier, header.package.begin());
    return header;
}
