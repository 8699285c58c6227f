#pragma once

#include <string_view>
#include <vector>

class Engine;

/// One thing that an engine may do to its caller.
struct Misbehaviour {
    /// Whether the engine takes its whole standard input, as a good one would, before it does anything else.
    enum class Input { readFirst, untouched };

    std::string_view name;
    /// What it takes and does, in one line.
    std::string_view description;
    /// Does it, and returns the exit status.
    int (*run)(Engine& engine);
    Input input = Input::readFirst;
};

std::vector<Misbehaviour> reportingMisbehaviours();
std::vector<Misbehaviour> inputMisbehaviours();
std::vector<Misbehaviour> outputMisbehaviours();
std::vector<Misbehaviour> endingMisbehaviours();
std::vector<Misbehaviour> cannedReplies();
