#pragma once

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryAppFactor.h"

#include <filesystem>
#include <string>
#include <vector>

/// The engine's arguments, without the program's name. They never contain the credential.
namespace RecoveryEngineCommandLine {

std::vector<std::string> inspectArguments(const std::filesystem::path& package, AmbrelRecoveryAppFactor factor);

std::vector<std::string> exportArguments(const std::filesystem::path& package, const std::string& snapshotCode,
                                         const std::filesystem::path& destination, AmbrelRecoveryAppFactor factor);

std::vector<std::string> selfTestArguments();

} // namespace RecoveryEngineCommandLine
