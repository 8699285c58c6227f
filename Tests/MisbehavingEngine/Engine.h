#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// What a misbehavior knows about its run: what it was started with, and how it tells the test what it does.
class Engine {
public:
    /// The exit status for a run that makes no sense.
    static constexpr int usageError = 64;

    Engine(int argumentCount, char** arguments);

    /// The chosen misbehavior's name, empty where none was chosen.
    const std::string& misbehavior() const { return misbehavior_; }

    /// What stands behind the name of the misbehavior.
    const std::vector<std::string>& parameters() const { return parameters_; }

    /// The parameter, or `otherwise` where there are not so many.
    std::string parameter(std::size_t index, std::string_view otherwise = "") const;
    long numericParameter(std::size_t index, long otherwise) const;

    /// Everything on the command line behind the program's name, untouched.
    const std::vector<std::string>& arguments() const { return arguments_; }

    /// Adds a line to the log file, if there is one.
    void log(std::string_view line) const;

    /// The log's descriptor, or a negative number.
    int logDescriptor() const { return log_; }

    /// Reads standard input to its end and logs its length and its first 1024 bytes.
    void readInput();

    /// What readInput() has read.
    const std::string& input() const { return input_; }

    /// Returns once the gate is open; at once where there is none, or where the engine has already passed it.
    void waitForGate();

    /// Never returns; a signal ends the process.
    [[noreturn]] void waitForSignal() const;

private:
    void choose(std::string text);

    std::vector<std::string> arguments_;
    std::string misbehavior_;
    std::vector<std::string> parameters_;
    std::string input_;
    int log_ = -1;
    bool gatePassed_ = false;
};
