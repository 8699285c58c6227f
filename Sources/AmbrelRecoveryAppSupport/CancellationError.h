#pragma once

#include <exception>

/// Thrown by an operation that was asked to stop.
class CancellationError final : public std::exception {
public:
    const char* what() const noexcept override { return "the operation was cancelled"; }
};
