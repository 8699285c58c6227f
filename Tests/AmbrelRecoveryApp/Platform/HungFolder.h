#pragma once

#include <filesystem>

/// A folder that does not answer, as on a network volume that went away: until the end of the scope no call of this
/// program that reads it, or asks what it is, comes back. One at a time.
class HungFolder {
public:
    explicit HungFolder(const std::filesystem::path& path);
    HungFolder(const HungFolder&) = delete;
    HungFolder& operator=(const HungFolder&) = delete;
    ~HungFolder();

    /// How many calls hang in it.
    static int hangingCalls();
};
