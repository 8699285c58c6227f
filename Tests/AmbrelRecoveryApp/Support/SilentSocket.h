#pragma once

#include <QString>

/// A socket that takes connections and never says a word.
class SilentSocket {
public:
    /// Makes the socket at `path`, which is free.
    explicit SilentSocket(const QString& path);
    SilentSocket(const SilentSocket&) = delete;
    SilentSocket& operator=(const SilentSocket&) = delete;
    ~SilentSocket();

    bool isListening() const { return isListening_; }

private:
    int descriptor_;
    bool isListening_ = false;
};
