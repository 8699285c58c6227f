#pragma once

#include <functional>
#include <string>

/// For checks that would change the whole test process: closed standard streams, resource limits, another user.
namespace ChildProcess {

/// Runs `body` in a forked child process and returns what it returned. An exception or a sudden death of the child is
/// appended as text, so that a body which returns its findings gives an empty string only when all went well.
/// Call it while no other thread runs.
std::string outcome(const std::function<std::string()>& body);

/// Makes the calling process an ordinary user's, for good. Does nothing where it is one already.
void dropPrivileges();

} // namespace ChildProcess
