#pragma once

#include "Format/Factor.h"

#include <optional>
#include <string>
#include <vector>

/// The engine's command line, taken apart.
struct CommandLine {
    enum class Command { inspect, exportSnapshot, selfTest, help };

    Command command = Command::help;
    std::string packagePath;
    Factor factor = Factor::backupPassphrase;
    std::string snapshotCode;
    std::string destinationPath;

    /// `arguments` are those after the program's name. None when anything is missing, unknown or given twice; the
    /// options may stand in any order, and what follows an option that takes a value is its value, whatever it is.
    static std::optional<CommandLine> parse(const std::vector<std::string>& arguments);

    static const char* usage();
};
