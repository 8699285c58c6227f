#pragma once

#include <string_view>
#include <vector>

class Engine;

/// One thing that an engine may do to its caller.
struct Misbehavior {
    /// Whether the engine takes its whole standard input, as a good one would, before it does anything else.
    enum class Input { readFirst, untouched };

    std::string_view name;
    /// What it takes and does, in one line.
    std::string_view description;
    /// Does it, and returns the exit status.
    int (*run)(Engine& engine);
    Input input = Input::readFirst;
};

std::vector<Misbehavior> reportingMisbehaviors();
std::vector<Misbehavior> inputMisbehaviors();
std::vector<Misbehavior> outputMisbehaviors();
std::vector<Misbehavior> endingMisbehaviors();
std::vector<Misbehavior> cannedReplies();
