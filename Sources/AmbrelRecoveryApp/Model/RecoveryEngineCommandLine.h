#pragma once

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryAppFactor.h"

#include <filesystem>
#include <string>
#include <vector>

/// The arguments that the engine is given, without the program's name. The credential is never among them.
namespace RecoveryEngineCommandLine {

std::vector<std::string> inspectArguments(const std::filesystem::path& package, AmbrelRecoveryAppFactor factor);

std::vector<std::string> exportArguments(const std::filesystem::path& package, const std::string& snapshotCode,
                                         const std::filesystem::path& destination, AmbrelRecoveryAppFactor factor);

std::vector<std::string> selfTestArguments();

} // namespace RecoveryEngineCommandLine
