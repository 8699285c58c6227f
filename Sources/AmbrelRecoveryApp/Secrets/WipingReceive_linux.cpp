// Wipes every buffer before a message is received into it.
//
// The connections to the display and to the message buses read into buffers that live as long as the process, and do
// not wipe what they have read out of them. Pasted text would stay there until an equally long message arrived; this
// way, it stays only until the next event. The whole buffer is wiped, so a caller must not expect to find its previous
// contents there: no library does, and the system does not guarantee it. In the executable alone, for the reasons given
// in WipingAllocator_linux.cpp.

#include "AmbrelRecoveryApp/Secrets/NextDefinition.h"

#include <cstring>

#include <sys/socket.h>

extern "C" ssize_t recvmsg(int descriptor, msghdr* message, int flags) {
    static auto* const next = nextDefinition<decltype(recvmsg)>("recvmsg");
    for (std::size_t index = 0; index < message->msg_iovlen; ++index) {
        explicit_bzero(message->msg_iov[index].iov_base, message->msg_iov[index].iov_len);
    }
    return next(descriptor, message, flags);
}
