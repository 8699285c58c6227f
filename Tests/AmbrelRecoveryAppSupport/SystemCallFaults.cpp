#include "SystemCallFaults.h"

#include "FaultedCall.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <limits>
#include <utility>

namespace {

constexpr std::size_t mostNames = 64;
constexpr std::size_t mostFaults = 16;

struct Fault {
    std::string_view name;
    int occurrence = 0;
    int error = 0;
};

struct Count {
    std::string_view name;
    int calls = 0;
};

/// Plain arrays: to count an allocation must not need one.
struct State {
    std::array<Count, mostNames> counts{};
    std::array<Fault, mostFaults> faults{};
    std::size_t faultCount = 0;
    std::string_view actionName;
    bool singleBytes = false;
    long secondsSetForward = 0;
    int longestWait = 0;
    bool counting = false;
};

/// What becomes of the calls of one thread. Others, a sanitizer's among them, have a state that counts nothing.
thread_local State state;

std::function<void()>& action() {
    static std::function<void()> action;
    return action;
}

Count& countOf(std::string_view name) {
    return *std::ranges::find_if(state.counts,
                                 [&](const Count& count) { return count.name.empty() || count.name == name; });
}

} // namespace

int FaultedCall::error(std::string_view name) {
    if (!state.counting) {
        return 0;
    }
    Count& count = countOf(name);
    count.name = name;
    ++count.calls;
    for (std::size_t index = 0; index < state.faultCount; ++index) {
        const Fault& fault = state.faults[index];
        if (fault.name == name && fault.occurrence == count.calls) {
            return fault.error;
        }
    }
    return 0;
}

void FaultedCall::done(std::string_view name) {
    if (state.counting && state.actionName == name) {
        state.actionName = {};
        const std::function<void()> once = std::exchange(action(), nullptr);
        once();
    }
}

std::size_t FaultedCall::length(std::size_t wanted) {
    return state.counting && state.singleBytes ? std::min<std::size_t>(wanted, 1) : wanted;
}

void FaultedCall::waits(int limit) {
    // A negative limit is none at all.
    state.longestWait = limit < 0 ? std::numeric_limits<int>::max() : std::max(state.longestWait, limit);
}

long FaultedCall::secondsSetForward() {
    return state.secondsSetForward;
}

void SystemCallFaults::reset() {
    state = State();
    state.counting = true;
}

void SystemCallFaults::pause() {
    state.counting = false;
}

void SystemCallFaults::fail(std::string_view name, int occurrence, int error) {
    state.faults.at(state.faultCount) = {name, calls(name) + occurrence, error};
    ++state.faultCount;
}

void SystemCallFaults::during(std::string_view name, std::function<void()> wanted) {
    action() = std::move(wanted);
    state.actionName = name;
}

void SystemCallFaults::moveSingleBytes() {
    state.singleBytes = true;
}

void SystemCallFaults::setClockForward(long seconds) {
    state.secondsSetForward = seconds;
}

int SystemCallFaults::longestWait() {
    return state.longestWait;
}

int SystemCallFaults::calls(std::string_view name) {
    return countOf(name).calls;
}

std::map<std::string, int> SystemCallFaults::allCalls() {
    const std::array<Count, mostNames> counts = state.counts;
    std::map<std::string, int> all;
    for (const Count& count : counts) {
        if (!count.name.empty()) {
            all.emplace(count.name, count.calls);
        }
    }
    return all;
}
