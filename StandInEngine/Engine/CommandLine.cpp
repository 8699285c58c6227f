#include "Engine/CommandLine.h"

#include <cstddef>

namespace {

// The options of one command line, each at most once.
class OptionReader {
public:
    OptionReader(const std::vector<std::string>& arguments, bool isExport)
        : arguments_(arguments), isExport_(isExport) {}

    std::optional<CommandLine> read() {
        CommandLine line;
        line.packagePath = arguments_[1];
        for (index_ = 2; index_ < arguments_.size(); ++index_) {
            if (!readOption(line)) {
                return std::nullopt;
            }
        }
        const bool isComplete =
            hasFactor_ && hasCredential_ && hasSnapshot_ == isExport_ && hasDestination_ == isExport_;
        return isComplete ? std::optional(line) : std::nullopt;
    }

private:
    bool readOption(CommandLine& line) {
        const std::string& option = arguments_[index_];
        if (option == "--backup-passphrase") {
            line.factor = Factor::backupPassphrase;
            return setOnce(hasFactor_);
        }
        if (option == "--recovery-key") {
            line.factor = Factor::recoveryKey;
            return setOnce(hasFactor_);
        }
        if (option == "--credential-stdin") {
            return setOnce(hasCredential_);
        }
        if (option == "--snapshot") {
            return setOnce(hasSnapshot_) && readValue(line.snapshotCode);
        }
        if (option == "--destination") {
            return setOnce(hasDestination_) && readValue(line.destinationPath);
        }
        return false;
    }

    bool readValue(std::string& value) {
        if (index_ + 1 >= arguments_.size()) {
            return false;
        }
        value = arguments_[++index_];
        return true;
    }

    static bool setOnce(bool& flag) {
        const bool wasSet = flag;
        flag = true;
        return !wasSet;
    }

    const std::vector<std::string>& arguments_;
    bool isExport_;
    std::size_t index_ = 0;
    bool hasFactor_ = false;
    bool hasCredential_ = false;
    bool hasSnapshot_ = false;
    bool hasDestination_ = false;
};

std::optional<CommandLine> withoutOptions(CommandLine::Command command) {
    CommandLine line;
    line.command = command;
    return line;
}

} // namespace

std::optional<CommandLine> CommandLine::parse(const std::vector<std::string>& arguments) {
    if (arguments.size() == 1 && arguments[0] == "self-test") {
        return withoutOptions(Command::selfTest);
    }
    if (arguments.size() == 1 && arguments[0] == "--help") {
        return withoutOptions(Command::help);
    }
    const bool isExport = !arguments.empty() && arguments[0] == "export";
    if (arguments.size() < 2 || (!isExport && arguments[0] != "inspect")) {
        return std::nullopt;
    }
    std::optional<CommandLine> line = OptionReader(arguments, isExport).read();
    if (line) {
        line->command = isExport ? Command::exportSnapshot : Command::inspect;
    }
    return line;
}

const char* CommandLine::usage() {
    return "Usage:\n"
           "  ambrel-recovery inspect PACKAGE (--backup-passphrase | --recovery-key) --credential-stdin\n"
           "  ambrel-recovery export PACKAGE --snapshot CODE --destination FOLDER\n"
           "                  (--backup-passphrase | --recovery-key) --credential-stdin\n"
           "  ambrel-recovery self-test\n"
           "The credential and one line feed are read from standard input.\n"
           "This is the stand-in engine. It stands in for the product's recovery engine, reads only packages that\n"
           "make-sample-backup has made, and cannot read the product's backups.\n";
}
