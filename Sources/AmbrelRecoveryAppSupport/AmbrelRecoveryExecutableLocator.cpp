#include "AmbrelRecoveryAppSupport/AmbrelRecoveryExecutableLocator.h"

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessError.h"
#include "AmbrelRecoveryAppSupport/ExecutableFile.h"

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
