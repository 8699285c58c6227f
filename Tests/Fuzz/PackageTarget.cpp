// Whole packages on disk, inspected and exported by the stand-in engine: whatever was done to a package, what an export
// gives out is what was put in, or nothing.

#include "Common/Failure.h"
#include "Common/Stopped.h"
#include "Engine/Engine.h"
#include "Fuzz/FuzzInput.h"
#include "Fuzz/Fuzzing.h"
#include "Fuzz/PackageScript.h"
#include "Support/TemporaryDirectory.h"
#include "Support/TestFiles.h"

#include <simdjson.h>
#include <sodium.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace fs = std::filesystem;

namespace {

using Fuzzing::expect;

/// The same numbers for every input, so that an input always makes the same package.
struct RepeatableNumbers {
    static inline std::uint64_t state = 0;

    static std::uint32_t next() {
        state = state * 6364136223846793005U + 1442695040888963407U;
        return static_cast<std::uint32_t>(state >> 32);
    }

    static void fill(void* buffer, std::size_t size) {
        std::generate_n(static_cast<std::uint8_t*>(buffer), size, [] { return static_cast<std::uint8_t>(next()); });
    }
};

struct Snapshot {
    std::string code;
    bool isComplete = false;
    std::uint64_t resources = 0;
    std::uint64_t byteCount = 0;
};

/// Runs a command of the engine. Gives what it printed, or none where it failed in one of the ways it may fail.
template<typename Command>
std::optional<std::string> printed(const Command& command) {
    std::string text;
    try {
        command([&text](std::string_view document) { text += document; });
        expect(!text.empty(), "a command that succeeds prints its document");
        return text;
    } catch (const Failure& failure) {
        expect(failure.reason() == FailureReason::integrity || failure.reason() == FailureReason::packageInvalid ||
                   failure.reason() == FailureReason::packageUnavailable ||
                   failure.reason() == FailureReason::snapshotUnknown,
               "a package is refused for what is wrong with it");
        return std::nullopt;
    } catch (const Stopped&) {
        // Somebody ended the program by a signal while it exported. What is behind this input was not tried.
        std::fputs("Stopped by a signal\n", stderr);
        std::_Exit(EXIT_FAILURE);
    }
}

Credential credential(const TestPackage& package, bool isRecoveryKey) {
    const std::string_view typed = isRecoveryKey ? std::string_view(package.recoveryKey()) : TestPackage::passphrase;
    return {isRecoveryKey ? Factor::recoveryKey : Factor::backupPassphrase, SecretBytes::copyOf(bytesOf(typed))};
}

void expectSound(const simdjson::dom::element& document, const PackageScript& script) {
    const std::int64_t commits = document["authenticatedCommitCount"];
    expect(static_cast<std::size_t>(commits) == simdjson::dom::array(document["snapshots"]).size(),
           "every commit is a snapshot");
    const std::string_view disposition = document["branchDisposition"];
    const std::int64_t heads = document["authenticatedHeadCount"];
    expect((heads == 0) == (disposition == "no-published-head"), "without heads the history has none");
    const auto intact = static_cast<std::int64_t>(script.intactPayloadCount());
    for (const simdjson::dom::element snapshot : document["snapshots"]) {
        const simdjson::dom::element evidence = snapshot["payloadFileEvidence"];
        const std::int64_t matching = evidence["matchingFileCount"];
        const std::int64_t others = std::int64_t{evidence["missingFileCount"]} +
                                    std::int64_t{evidence["mismatchedFileCount"]} +
                                    std::int64_t{evidence["unreadableFileCount"]};
        const std::int64_t required = evidence["requiredFileCount"];
        expect(matching <= intact, "a payload file that was changed in any way does not match");
        expect(matching + others == required, "every payload file counts once");
        expect(bool(evidence["complete"]) == (others == 0), "complete means that all payload files match");
    }
}

std::vector<Snapshot> snapshotsOf(const simdjson::dom::element& document) {
    std::vector<Snapshot> snapshots;
    for (const simdjson::dom::element snapshot : document["snapshots"]) {
        snapshots.push_back({std::string(std::string_view(snapshot["selectionCode"])),
                             bool(snapshot["payloadFileEvidence"]["complete"]),
                             std::uint64_t(snapshot["counts"]["resources"]),
                             std::uint64_t(snapshot["logicalPlaintextByteCount"])});
    }
    return snapshots;
}

void expectOriginals(const fs::path& folder, const Snapshot& snapshot, const PackageScript& script) {
    std::uint64_t files = 0;
    std::uint64_t byteCount = 0;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
        expect(!entry.is_symlink(), "an export makes no links");
        if (entry.is_regular_file()) {
            const std::string content = TestFiles::read(entry.path());
            expect(std::ranges::count(script.originals(), content) == 1, "an exported file is an original");
            ++files;
            byteCount += content.size();
        }
    }
    expect(files == snapshot.resources, "an export holds every resource");
    expect(byteCount == snapshot.byteCount, "an export is as large as the inspection said");
}

void expectExport(const fs::path& folder, const Snapshot& snapshot, const PackageScript& script, bool isRecoveryKey) {
    fs::create_directory(folder);
    CommandLine line;
    line.packagePath = script.package().path();
    line.snapshotCode = snapshot.code;
    line.destinationPath = folder / "Export";
    const auto report = printed([&](const Engine::Print& print) {
        Engine::exportSnapshot(line, credential(script.package(), isRecoveryKey), print);
    });
    expect(report.has_value() == snapshot.isComplete, "a snapshot can be exported when it is complete");
    expect(report.has_value() == fs::exists(line.destinationPath), "a failed export leaves no folder");
    const auto entries = std::distance(fs::directory_iterator(folder), fs::directory_iterator());
    expect(entries == (report ? 1 : 0), "an export leaves nothing beside its folder");
    if (report) {
        expectOriginals(line.destinationPath, snapshot, script);
    }
    fs::remove_all(folder);
}

void expectSafe(const fs::path& folder, const PackageScript& script, bool isRecoveryKey) {
    CommandLine line;
    line.packagePath = script.package().path();
    const auto text = printed(
        [&](const Engine::Print& print) { Engine::inspect(line, credential(script.package(), isRecoveryKey), print); });
    if (!text) {
        return;
    }
    simdjson::dom::parser parser;
    const simdjson::dom::element document = parser.parse(*text);
    expectSound(document, script);
    constexpr std::size_t mostExports = 3;
    std::vector<Snapshot> snapshots = snapshotsOf(document);
    snapshots.resize(std::min(snapshots.size(), mostExports));
    for (const Snapshot& snapshot : snapshots) {
        expectExport(folder / "Exports", snapshot, script, isRecoveryKey);
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    static randombytes_implementation numbers = {};
    numbers.implementation_name = [] { return "repeatable"; };
    numbers.random = RepeatableNumbers::next;
    numbers.buf = RepeatableNumbers::fill;
    expect(::randombytes_set_implementation(&numbers) == 0 && ::sodium_init() >= 0,
           "the cryptography library is there");
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const TemporaryDirectory folder;
    RepeatableNumbers::state = 1;
    FuzzInput input(data, size);
    const bool isRecoveryKey = (input.takeByte() & 1) != 0;
    {
        PackageScript script(folder / "P.ambrel");
        script.run(input);
        expectSafe(folder.path(), script, isRecoveryKey);
    }
    fs::remove_all(folder / "P.ambrel");
    return 0;
}
