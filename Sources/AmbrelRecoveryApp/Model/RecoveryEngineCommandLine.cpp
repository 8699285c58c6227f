#include "AmbrelRecoveryApp/Model/RecoveryEngineCommandLine.h"

namespace {

/// Makes the engine read the credential from its standard input.
constexpr const char* credentialFlag = "--credential-stdin";

} // namespace

std::vector<std::string> RecoveryEngineCommandLine::inspectArguments(const std::filesystem::path& package,
                                                                     AmbrelRecoveryAppFactor factor) {
    return {"inspect", package.native(), std::string(commandFlag(factor)), credentialFlag};
}

std::vector<std::string> RecoveryEngineCommandLine::exportArguments(const std::filesystem::path& package,
                                                                    const std::string& snapshotCode,
                                                                    const std::filesystem::path& destination,
                                                                    AmbrelRecoveryAppFactor factor) {
    return {"export",
            package.native(),
            "--snapshot",
            snapshotCode,
            "--destination",
            destination.native(),
            std::string(commandFlag(factor)),
            credentialFlag};
}

std::vector<std::string> RecoveryEngineCommandLine::selfTestArguments() {
    return {"self-test"};
}
