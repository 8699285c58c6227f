#pragma once

#include <filesystem>
#include <string>
#include <string_view>

/// A named pipe that the test holds open, so that neither side ever waits for the other to open it. It carries the
/// signals between a test and an engine: lines of the engine's log, bytes for a gate. Not synchronized.
class NamedPipe {
public:
    /// Makes the pipe at `path`, where nothing may be. Throws std::system_error.
    explicit NamedPipe(std::filesystem::path path);

    NamedPipe(const NamedPipe&) = delete;
    NamedPipe& operator=(const NamedPipe&) = delete;
    ~NamedPipe();

    const std::filesystem::path& path() const { return path_; }

    /// Waits for one line and returns it without its line feed. Throws std::runtime_error when nothing has come after
    /// a minute, so that a broken test ends.
    std::string readLine();

    /// Reads lines until one that begins with `beginning`, and returns that one.
    std::string readUntil(std::string_view beginning);

    /// Throws std::system_error.
    void write(std::string_view text);

private:
    std::filesystem::path path_;
    int descriptor_;
    std::string unread_;
};
