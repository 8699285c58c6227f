#pragma once

#include <stdexcept>

/// An error that is specific to the sample tools. The text is for the user who started them.
class SampleError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};
