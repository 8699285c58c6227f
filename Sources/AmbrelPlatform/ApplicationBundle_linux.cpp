#include "AmbrelPlatform/ApplicationBundle.h"

#include <system_error>

const ApplicationBundle& ApplicationBundle::mainBundle() {
    static const ApplicationBundle bundle = [] {
        std::error_code error;
        const std::filesystem::path executable = std::filesystem::read_symlink("/proc/self/exe", error);
        // The kernel reports "(unreachable)/..." for an executable outside the process's root directory.
        return ApplicationBundle(executable.is_absolute() ? executable.parent_path() : std::filesystem::path());
    }();
    return bundle;
}
