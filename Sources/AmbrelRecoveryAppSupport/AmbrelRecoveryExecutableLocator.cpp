#include "AmbrelRecoveryAppSupport/AmbrelRecoveryExecutableLocator.h"

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessError.h"

#include <system_error>

#include <unistd.h>

std::filesystem::path AmbrelRecoveryExecutableLocator::bundledExecutable(const ApplicationBundle& bundle) {
    const auto resources = bundle.resourcePath();
    if (!resources) {
        throw AmbrelRecoveryProcessError::executableUnavailable;
    }
    std::filesystem::path engine = *resources / "bin" / "ambrel-recovery";
    if (!isExecutableFile(engine)) {
        throw AmbrelRecoveryProcessError::executableUnavailable;
    }
    return engine;
}

bool AmbrelRecoveryExecutableLocator::isExecutableFile(const std::filesystem::path& path) {
    std::error_code error;
    return std::filesystem::is_regular_file(path, error) && access(path.c_str(), X_OK) == 0;
}
