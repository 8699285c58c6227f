#pragma once

#include "Common/UniqueDescriptor.h"
#include "ProgramResult.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include <sys/types.h>

/// One run of a built program, with the three streams that the application gives it: a pipe with the credential, and
/// two files.
class Program {
public:
    struct Setup {
        std::string input = {};
        /// Runs in the child before the program does; may change its user, its limits and its signals.
        std::function<void()> inChild = [] {};
        /// Standard output is a pipe that is full, so the program cannot end before wait() has emptied it.
        bool hasBlockedOutput = false;
        /// Standard input stays open after the input until wait().
        bool keepsInputOpen = false;
    };

    /// Starts the program. Throws std::system_error.
    Program(const std::string& path, const std::vector<std::string>& arguments, const Setup& setup);
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    /// Kills what is still running.
    ~Program();

    static ProgramResult run(const std::string& path, const std::vector<std::string>& arguments, const Setup& setup);

    pid_t pid() const { return pid_; }
    void kill(int signal) const;

    /// Empties standard output and waits for the end.
    ProgramResult wait();

private:
    void prepareOutput(bool isBlocked);
    void start(const std::string& path, const std::vector<std::string>& arguments, const Setup& setup,
               int inputReadEnd);

    pid_t pid_ = -1;
    UniqueDescriptor input_;
    /// What the program writes to, and what the test reads from.
    UniqueDescriptor outputWriteEnd_;
    UniqueDescriptor output_;
    UniqueDescriptor error_;
    std::size_t fillByteCount_ = 0;
};
