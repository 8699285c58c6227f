#include "Support/ScopedEnvironment.h"

#include <cstdlib>
#include <utility>

namespace {

std::optional<std::string> value(const std::string& name) {
    const char* const text = std::getenv(name.c_str());
    return text != nullptr ? std::optional<std::string>(text) : std::nullopt;
}

void assign(const std::string& name, const std::optional<std::string>& value) {
    if (value) {
        setenv(name.c_str(), value->c_str(), 1);
    } else {
        unsetenv(name.c_str());
    }
}

} // namespace

ScopedEnvironment::ScopedEnvironment(std::string name, const std::optional<std::string>& value)
    : name_(std::move(name)), previous_(::value(name_)) {
    assign(name_, value);
}

ScopedEnvironment::~ScopedEnvironment() {
    assign(name_, previous_);
}
