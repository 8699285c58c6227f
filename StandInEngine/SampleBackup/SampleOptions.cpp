#include "SampleBackup/SampleOptions.h"

#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <set>
#include <string_view>
#include <system_error>
#include <utility>

namespace {

std::optional<SampleKind> kindFrom(std::string_view word) {
    constexpr std::array<std::pair<std::string_view, SampleKind>, 5> kinds = {{
        {"ordinary", SampleKind::ordinary},
        {"forked", SampleKind::forked},
        {"missing-payload", SampleKind::missingPayload},
        {"damaged-payload", SampleKind::damagedPayload},
        {"unsupported-version", SampleKind::unsupportedVersion},
    }};
    for (const auto& [name, kind] : kinds) {
        if (name == word) {
            return kind;
        }
    }
    return std::nullopt;
}

/// The time that a number of seconds since 1970 stands for, with ten digits at most.
std::optional<std::chrono::system_clock::time_point> timeFrom(std::string_view text) {
    constexpr std::size_t mostDigits = 10;
    std::int64_t seconds = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), seconds);
    if (error != std::errc() || end != text.data() + text.size() || text.size() > mostDigits || seconds < 0) {
        return std::nullopt;
    }
    return std::chrono::system_clock::time_point(std::chrono::seconds(seconds));
}

bool setFlag(SampleOptions& options, std::string_view name) {
    if (name == "--fast") {
        options.isFast = true;
    } else if (name == "--passphrase-stdin") {
        options.readsPassphrase = true;
    } else {
        return false;
    }
    return true;
}

bool setValue(SampleOptions& options, std::string_view name, const std::string& value) {
    if (name == "--pictures") {
        options.picturesPath = value;
    } else if (name == "--output") {
        options.outputPath = value;
    } else if (const std::optional<SampleKind> kind = kindFrom(value); name == "--kind" && kind) {
        options.kind = *kind;
    } else if (name == "--now") {
        options.now = timeFrom(value);
        return options.now.has_value();
    } else {
        return false;
    }
    return true;
}

} // namespace

std::optional<SampleOptions> SampleOptions::parse(const std::vector<std::string>& arguments) {
    constexpr std::string_view extension = ".ambrel";
    SampleOptions options;
    std::set<std::string_view> seen;
    for (std::size_t index = 0; index < arguments.size(); ++index) {
        const std::string& name = arguments[index];
        if (!seen.insert(name).second) {
            return std::nullopt;
        }
        if (setFlag(options, name)) {
            continue;
        }
        if (index + 1 == arguments.size() || !setValue(options, name, arguments[index + 1])) {
            return std::nullopt;
        }
        ++index;
    }
    const bool isNamed = options.outputPath.size() > extension.size() && options.outputPath.ends_with(extension);
    return isNamed && !options.picturesPath.empty() ? std::optional(options) : std::nullopt;
}

const char* SampleOptions::usage() {
    return "Usage: make-sample-backup --pictures FOLDER --output NAME.ambrel [--kind KIND]\n"
           "                          [--passphrase-stdin] [--fast] [--now SECONDS]\n"
           "Makes a sample backup for the stand-in engine out of the files in a folder. The product's own engine\n"
           "cannot read it.\n"
           "  --kind KIND         ordinary (default), forked, missing-payload, damaged-payload or\n"
           "                      unsupported-version\n"
           "  --passphrase-stdin  reads the passphrase and one line feed from standard input\n"
           "  --fast              protects the secrets hardly at all, for tests\n"
           "  --now SECONDS       dates the snapshots as at this time, in seconds since 1970\n";
}
