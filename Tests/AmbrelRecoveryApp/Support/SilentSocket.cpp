#include "SilentSocket.h"

#include <string>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

SilentSocket::SilentSocket(const QString& path) : descriptor_(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.toUtf8().toStdString().copy(address.sun_path, sizeof address.sun_path - 1);
    const void* const pointer = &address;
    isListening_ = ::bind(descriptor_, static_cast<const sockaddr*>(pointer), sizeof address) == 0 &&
                   ::listen(descriptor_, 5) == 0;
}

SilentSocket::~SilentSocket() {
    ::close(descriptor_);
}
