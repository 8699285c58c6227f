// Every buffer is wiped before a message is received into it.
//
// The connections to the display and to the message buses read into buffers that they keep for as long as the process
// lives, and take what came out of them without wiping it. A pasted text would stay there until something as long came
// along; in this way it stays until the next event. All of the buffer that is offered is wiped, so a caller must not
// expect to find in it what was there: none of the libraries does, and the system promises it to nobody. In the
// executable alone, for the reasons in WipingAllocator_linux.cpp.

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
