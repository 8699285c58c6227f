#pragma once

/// Thrown from a work loop after a signal asked the program to end. Not an error: the handler cleans up and then lets
/// the signal take its default action.
struct Stopped {
    int signal;
};
