#include "CannedDocuments.h"
#include "Engine.h"
#include "Misbehavior.h"
#include "Text.h"

#include <cerrno>
#include <cstddef>
#include <optional>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using CannedDocuments::Export;
using CannedDocuments::Inspection;

/// What the application asked for.
struct Request {
    enum class Command { inspect, exportSnapshot, selfTest };
    Command command;
    std::string factor;
    std::string snapshotCode;
    std::string destination;
};

bool isFactorFlag(const std::string& argument) {
    return argument == "--backup-passphrase" || argument == "--recovery-key";
}

std::optional<Request> parse(const std::vector<std::string>& arguments) {
    const std::size_t count = arguments.size();
    if (count == 1 && arguments[0] == "self-test") {
        return Request{Request::Command::selfTest, "", "", ""};
    }
    if (count < 2 || arguments[count - 1] != "--credential-stdin" || !isFactorFlag(arguments[count - 2])) {
        return std::nullopt;
    }
    const std::string factor = arguments[count - 2].substr(2);
    if (count == 4 && arguments[0] == "inspect") {
        return Request{Request::Command::inspect, factor, "", ""};
    }
    if (count == 8 && arguments[0] == "export" && arguments[2] == "--snapshot" && arguments[4] == "--destination") {
        return Request{Request::Command::exportSnapshot, factor, arguments[3], arguments[5]};
    }
    return std::nullopt;
}

int failWith(int status, std::string_view text) {
    writeAll(STDERR_FILENO, std::string(text) + "\n");
    return status;
}

/// Reads the request and its credential. None, with a message, where the application did not keep the contract.
std::optional<Request> receive(const Engine& engine) {
    std::optional<Request> request = parse(engine.arguments());
    const std::string& input = engine.input();
    if (!request) {
        failWith(Engine::usageError, "usage: the arguments are not an application's");
    } else if (request->command != Request::Command::selfTest && (input.size() < 2 || input.back() != '\n')) {
        failWith(Engine::usageError, "usage: no credential with a line feed on standard input");
        request.reset();
    }
    return request;
}

/// A new folder with one file in it.
int makeDestination(const std::string& path) {
    if (mkdir(path.c_str(), 0700) != 0) {
        return errno == EEXIST ? failWith(7, "The destination already exists.")
                               : failWith(8, "The destination is unavailable.");
    }
    const int file = open((path + "/picture.png").c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    const bool written = writeAll(file, "not really a picture");
    close(file);
    return written ? 0 : failWith(9, "The output could not be written.");
}

int reply(const Engine& engine, Inspection inspection, Export exported) {
    const std::optional<Request> request = receive(engine);
    if (!request) {
        return Engine::usageError;
    }
    switch (request->command) {
    case Request::Command::selfTest:
        writeAll(STDOUT_FILENO, "self-test passed\n");
        writeAll(STDERR_FILENO, "nothing to complain about\n");
        return 0;
    case Request::Command::inspect:
        inspection.unlockedFactor = request->factor;
        writeAll(STDOUT_FILENO, CannedDocuments::text(inspection));
        return 0;
    case Request::Command::exportSnapshot:
        exported.snapshotCode = request->snapshotCode;
        if (const int status = makeDestination(request->destination); status != 0) {
            return status;
        }
        writeAll(STDOUT_FILENO, CannedDocuments::text(exported));
        return 0;
    }
    return Engine::usageError;
}

int replyText(const Engine& engine, std::string_view output) {
    if (!receive(engine)) {
        return Engine::usageError;
    }
    writeAll(STDOUT_FILENO, output);
    return 0;
}

int replyManySnapshots(Engine& engine) {
    return reply(engine, {.unlockedFactor = "", .snapshotCount = engine.numericParameter(0, 1000)}, {});
}

/// A valid document in which the text at the first place of `from` is replaced.
int replyChanged(const Engine& engine, std::string_view from, std::string_view to) {
    std::string document = engine.parameter(0) == "export"
                               ? CannedDocuments::text(Export{.snapshotCode = "snapshot-000001"})
                               : CannedDocuments::text(Inspection{.unlockedFactor = "backup-passphrase"});
    if (const std::size_t place = document.find(from); place != std::string::npos) {
        document.replace(place, from.size(), to);
    }
    return replyText(engine, document);
}

/// STATUS TEXT...
int failAsTold(Engine& engine) {
    if (!receive(engine)) {
        return Engine::usageError;
    }
    std::string text;
    for (std::size_t index = 1; index < engine.parameters().size(); ++index) {
        text += (index == 1 ? "" : " ") + engine.parameter(index);
    }
    return failWith(static_cast<int>(engine.numericParameter(0, 1)), text);
}

template<int status>
int failReading(const Engine& engine, std::string_view text) {
    return receive(engine) ? failWith(status, text) : Engine::usageError;
}

} // namespace

std::vector<Misbehavior> cannedReplies() {
    return {
        {"valid", "three snapshots with one retained tip; an export that succeeds",
         [](Engine& engine) { return reply(engine, {}, {}); }},
        {"fork", "an unresolved fork with two retained tips",
         [](Engine& engine) {
             return reply(engine, {.unlockedFactor = "", .branchDisposition = "unresolved-fork", .retainedTipCount = 2},
                          {});
         }},
        {"no-head", "one snapshot, but no published head",
         [](Engine& engine) {
             return reply(engine,
                          {.unlockedFactor = "",
                           .branchDisposition = "no-published-head",
                           .snapshotCount = 1,
                           .retainedTipCount = 0},
                          {});
         }},
        {"no-tip", "three snapshots of which none is a retained tip",
         [](Engine& engine) { return reply(engine, {.unlockedFactor = "", .retainedTipCount = 0}, {}); }},
        {"no-snapshots", "a backup without a snapshot",
         [](Engine& engine) {
             return reply(engine, {.unlockedFactor = "", .snapshotCount = 0, .retainedTipCount = 0}, {});
         }},
        {"many-snapshots", "COUNT: so many snapshots, with one retained tip", replyManySnapshots},
        {"wrong-schema", "the other document's schema identifier",
         [](Engine& engine) {
             return reply(engine, {.schemaIdentifier = Export().schemaIdentifier, .unlockedFactor = ""},
                          {.schemaIdentifier = Inspection().schemaIdentifier, .snapshotCode = ""});
         }},
        {"wrong-format", "another format identifier",
         [](Engine& engine) {
             return reply(engine, {.formatIdentifier = "com.ambrel.backup.v2", .unlockedFactor = ""}, {});
         }},
        {"missing-key", "[export]: a document without its last count or snapshots",
         [](Engine& engine) {
             return replyChanged(engine, engine.parameter(0) == "export" ? "failedResourceCount" : "snapshots",
                                 "unknown");
         }},
        {"trailing-text", "[export]: a document with text behind it",
         [](Engine& engine) { return replyChanged(engine, "}\n", "}\nand more\n"); }},
        {"no-output", "nothing at all, with status 0", [](Engine& engine) { return replyText(engine, ""); }},
        {"garbage", "text that is no document, with status 0",
         [](Engine& engine) { return replyText(engine, "{\"schemaIdentifier\": \"com.ambrel\xff"); }},
        {"fail", "STATUS TEXT...: fails with this text on standard error", failAsTold},
        {"did-not-unlock", "fails with status 2: the credential does not fit",
         [](Engine& engine) { return failReading<2>(engine, "The credential did not unlock this backup."); }},
        {"invalid-credential", "fails with status 3: the credential is none",
         [](Engine& engine) { return failReading<3>(engine, "The Credential Is Invalid."); }},
        {"invalid-package", "fails with status 4: no backup package",
         [](Engine& engine) { return failReading<4>(engine, "The package is invalid or unsupported."); }},
        {"package-unavailable", "fails with status 5: the package cannot be read",
         [](Engine& engine) { return failReading<5>(engine, "The package is unavailable."); }},
        {"integrity-failure", "fails with status 6: the contents are damaged",
         [](Engine& engine) { return failReading<6>(engine, "Integrity verification failed."); }},
        {"destination-exists", "fails with status 7: something is at the destination",
         [](Engine& engine) { return failReading<7>(engine, "The destination already exists."); }},
        {"destination-unavailable", "fails with status 8: the destination cannot be used",
         [](Engine& engine) { return failReading<8>(engine, "The destination is unavailable."); }},
        {"output-not-written", "fails with status 9: the export cannot be written",
         [](Engine& engine) { return failReading<9>(engine, "The output could not be written."); }},
        {"unknown-failure", "fails with status 70 and a text that nobody knows",
         [](Engine& engine) { return failReading<70>(engine, "Something else went wrong."); }},
        {"silent-failure", "fails with status 1 and no text",
         [](Engine& engine) { return receive(engine) ? 1 : Engine::usageError; }},
    };
}
