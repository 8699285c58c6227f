#pragma once

/// Until the end of the scope the system has no further thread for this one: std::thread throws std::system_error here.
class ThreadShortage {
public:
    ThreadShortage();
    ThreadShortage(const ThreadShortage&) = delete;
    ThreadShortage& operator=(const ThreadShortage&) = delete;
    ~ThreadShortage();
};
