#pragma once

#include <string>
#include <vector>

#include <sys/types.h>

/// The least that starting a program and waiting for it takes: no check, no files, no signals, no descriptor.
namespace BareProcess {

/// Starts a program with vfork(). Its standard output is the descriptor, or the null device if that is negative. Throws
/// std::runtime_error.
pid_t start(const std::vector<std::string>& command, int standardOutput = -1);

/// Waits for its end and returns its wait status.
int wait(pid_t process);

} // namespace BareProcess
