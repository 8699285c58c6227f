#include "AmbrelRecoveryAppSupport/AmbrelRecoveryCredentialSession.h"

#include <utility>

void use(AmbrelRecoveryCredentialSession& session) {
    static_cast<void>(std::move(session).factor());
#ifdef MUST_NOT_COMPILE
    const AmbrelRecoveryCredentialSession moved(std::move(session));
#endif
}
