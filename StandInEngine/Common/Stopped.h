#pragma once

/// Thrown out of a work loop after a signal asked the program to end. Not an error: whoever catches it cleans up and
/// lets the signal take its default course.
struct Stopped {
    int signal;
};
