#include "AmbrelPlatform/ApplicationBundle.h"

#include <system_error>

const ApplicationBundle& ApplicationBundle::mainBundle() {
    static const ApplicationBundle bundle = [] {
        std::error_code error;
        return ApplicationBundle(std::filesystem::read_symlink("/proc/self/exe", error).parent_path());
    }();
    return bundle;
}
