#pragma once

#include "Common/FailureReason.h"

#include <exception>

/// A failed run. The detail is for developers who read standard error: a short text with static storage duration. It
/// never contains a path or other external data, so that it cannot be mistaken for another failure.
class Failure : public std::exception {
public:
    explicit Failure(FailureReason reason, const char* detail = "") noexcept : reason_(reason), detail_(detail) {}

    FailureReason reason() const noexcept { return reason_; }
    const char* what() const noexcept override { return detail_; }

private:
    FailureReason reason_;
    const char* detail_;
};
