#pragma once

#include <filesystem>

/// A folder that does not answer, as on a network volume that went away: until the end of the scope no call of this
/// program that reads it, asks or changes something at it or below it comes back. On the thread that made it, which
/// would never get to the end of the scope, such calls are passed on and counted. One at a time.
class HungFolder {
public:
    enum class Answers { never, toOtherThreads };

    explicit HungFolder(const std::filesystem::path& path, Answers answers = Answers::never);
    HungFolder(const HungFolder&) = delete;
    HungFolder& operator=(const HungFolder&) = delete;
    ~HungFolder();

    /// How many calls hang in it.
    static int hangingCalls();
    /// How many calls the thread that made it has made in it.
    static int callsOfThisThread();
};
