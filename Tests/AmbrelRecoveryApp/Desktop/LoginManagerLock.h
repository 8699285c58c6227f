#pragma once

#include <QDBusMessage>
#include <QDBusUnixFileDescriptor>
#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <utility>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

/// The end of a pipe that a login manager keeps: it sees when the last copy of the other end is closed.
class LoginManagerLock {
public:
    std::optional<QDBusMessage> grant(const QDBusMessage& call) {
        std::array<int, 2> ends{};
        EXPECT_EQ(pipe2(ends.data(), O_CLOEXEC), 0);
        ::close(std::exchange(kept_, ends[0]));
        const QDBusUnixFileDescriptor given(ends[1]);
        ::close(ends[1]);
        return call.createReply(QVariant::fromValue(given));
    }
    ~LoginManagerLock() { ::close(kept_); }

    bool isReleased() const {
        pollfd state{.fd = kept_, .events = POLLIN, .revents = 0};
        return kept_ >= 0 && ::poll(&state, 1, 0) == 1 && (state.revents & POLLHUP) != 0;
    }

private:
    int kept_ = -1;
};
