#include "AmbrelRecoveryApp/Platform/SessionBusCheck.h"

#include "AmbrelRecoveryApp/Platform/BusAddress.h"
#include "AmbrelRecoveryAppSupport/RetryInterrupted.h"
#include "AmbrelRecoveryAppSupport/UniqueDescriptor.h"

#include <QByteArray>
#include <QByteArrayList>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using Clock = std::chrono::steady_clock;

namespace {

struct SocketAddress {
    sockaddr_un address{};
    socklen_t length = 0;
};

/// The first socket that an address names, with no length where it names none.
SocketAddress socketOf(const QString& address) {
    constexpr QByteArrayView transport("unix:");
    SocketAddress found;
    const QByteArray first = address.toUtf8().split(';').constFirst();
    if (!first.startsWith(transport)) {
        return found;
    }
    for (const QByteArray& part : first.sliced(transport.size()).split(',')) {
        const bool isAbstract = part.startsWith("abstract=");
        if (!isAbstract && !part.startsWith("path=")) {
            continue;
        }
        // A name that is no path begins with a zero byte.
        const QByteArray value = QByteArray::fromPercentEncoding(part.sliced(part.indexOf('=') + 1));
        const QByteArray name = isAbstract ? QByteArray(1, '\0') + value : value;
        if (static_cast<std::size_t>(name.size()) < sizeof found.address.sun_path) {
            found.address.sun_family = AF_UNIX;
            std::memcpy(found.address.sun_path, name.constData(), static_cast<std::size_t>(name.size()));
            found.length =
                static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + static_cast<std::size_t>(name.size()));
        }
        break;
    }
    return found;
}

/// Every answer of a bus to the beginning of a conversation starts with one of these words.
bool isAnswer(const QByteArray& line) {
    constexpr std::array answers{"OK", "REJECTED", "DATA", "ERROR"};
    return std::ranges::any_of(answers, [&](const char* answer) { return line.startsWith(answer); });
}

/// Reads to the end of a line, of the limit or of the connection.
QByteArray firstLine(int socket, Clock::time_point deadline) {
    constexpr qsizetype longestLine = 512;
    QByteArray line;
    while (!line.contains('\n') && line.size() < longestLine) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
        pollfd waiting{.fd = socket, .events = POLLIN, .revents = 0};
        if (left.count() <= 0 ||
            retryInterrupted([&] { return poll(&waiting, 1, static_cast<int>(left.count())); }) <= 0) {
            break;
        }
        std::array<char, 256> bytes{};
        const ssize_t count = retryInterrupted([&] { return recv(socket, bytes.data(), bytes.size(), 0); });
        if (count <= 0) {
            break;
        }
        line.append(bytes.data(), count);
    }
    return line;
}

} // namespace

bool SessionBusCheck::mayBeAsked(const QString& address, std::chrono::milliseconds limit) {
    const Clock::time_point deadline = Clock::now() + limit;
    const SocketAddress place = socketOf(address);
    if (place.length == 0) {
        return true;
    }
    const UniqueDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    const void* const name = &place.address;
    if (socket.get() < 0 || connect(socket.get(), static_cast<const sockaddr*>(name), place.length) != 0) {
        // A queue that is full belongs to a bus that does not even take connections.
        return errno != EAGAIN;
    }
    const QByteArray user = QByteArray::number(getuid()).toHex();
    const QByteArray beginning = QByteArray(1, '\0') + "AUTH EXTERNAL " + user + "\r\n";
    const ssize_t sent = retryInterrupted([&] {
        return send(socket.get(), beginning.constData(), static_cast<std::size_t>(beginning.size()), MSG_NOSIGNAL);
    });
    return sent == beginning.size() && isAnswer(firstLine(socket.get(), deadline));
}

void SessionBusCheck::passBy(std::chrono::milliseconds limit) {
    const QString address = BusAddress::ofSessionBus();
    if (!address.isEmpty() && !mayBeAsked(address, limit)) {
        // Not unset: without an address, one is looked for elsewhere.
        qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    }
}
