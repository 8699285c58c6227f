#pragma once

#include <functional>
#include <string_view>

/// Lets system calls of the code under test fail where the system itself never would. The test program is linked so
/// that these calls come here first (see CMakeLists.txt); without a fault they are made as they are. Not synchronised:
/// for tests with one thread.
namespace SystemCallFaults {

/// Forgets every fault and every count.
void reset();

/// The `occurrence`-th call of `name` from now on, counted from 1, fails with `error`. What the call would release is
/// released all the same, as the system does.
void fail(std::string_view name, int occurrence, int error);

/// `action` is called within the next call of `name`, once the system has done its part.
void during(std::string_view name, std::function<void()> action);

/// Every call of write() or read() from now on moves at most one byte.
void moveSingleBytes();

/// How often `name` was called since the last reset.
int calls(std::string_view name);

} // namespace SystemCallFaults
