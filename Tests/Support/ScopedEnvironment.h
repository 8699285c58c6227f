#pragma once

#include <optional>
#include <string>

/// Sets or removes one environment variable, and puts back what was there when it is destroyed. Not for use while other
/// threads read the environment.
class ScopedEnvironment {
public:
    /// No `value` removes the variable.
    ScopedEnvironment(std::string name, const std::optional<std::string>& value);

    ScopedEnvironment(const ScopedEnvironment&) = delete;
    ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;
    ~ScopedEnvironment();

private:
    std::string name_;
    std::optional<std::string> previous_;
};
