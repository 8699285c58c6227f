#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

/// Lets system calls of the code under test fail where the system itself never would. A test program that is linked
/// with this defines the calls itself, so that those of the libraries (the standard library's file system, libuuid)
/// come here, too; without a fault they are made as they are. Only the thread that called reset() is counted and
/// faulted.
namespace SystemCallFaults {

/// Forgets every fault and every count. From now on the calls of this thread are counted.
void reset();

/// Counts nothing and lets nothing fail until the next reset(), so that a test can look around by itself.
void pause();

/// The `occurrence`-th call of `name` from now on, counted from 1, fails with `error`. What the call would release is
/// released all the same, as the system does. Failing "new" is the failure of an allocation.
void fail(std::string_view name, int occurrence, int error);

/// `action` is called within the next call of `name`, once the system has done its part or it has failed.
void during(std::string_view name, std::function<void()> action);

/// Every call of write() or pread() from now on moves at most one byte.
void moveSingleBytes();

/// Sets the wall clock forward by so many seconds, or back by a negative number, until the next reset.
void setClockForward(long seconds);

/// The longest wait that poll() was asked for since the last reset, in milliseconds.
int longestWait();

/// How often `name` was called since the last reset.
int calls(std::string_view name);

/// Every name that was called since the last reset, and how often.
std::map<std::string, int> allCalls();

} // namespace SystemCallFaults
