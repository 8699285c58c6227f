#pragma once

#include <stdexcept>

/// A reason why no sample can be made that only the sample tools know. The text is for the person who started them.
class SampleError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};
