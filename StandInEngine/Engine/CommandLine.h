#pragma once

#include "Format/Factor.h"

#include <optional>
#include <string>
#include <vector>

/// The parsed command line of the engine.
struct CommandLine {
    enum class Command { inspect, exportSnapshot, selfTest, help };

    Command command = Command::help;
    std::string packagePath;
    Factor factor = Factor::backupPassphrase;
    std::string snapshotCode;
    std::string destinationPath;

    /// `arguments` are those after the program's name. Returns std::nullopt if anything is missing, unknown or given
    /// twice. Options may come in any order; the argument after an option that takes a value is always its value.
    static std::optional<CommandLine> parse(const std::vector<std::string>& arguments);

    static const char* usage();
};
