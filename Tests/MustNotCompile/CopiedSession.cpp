#include "AmbrelRecoveryAppSupport/AmbrelRecoveryCredentialSession.h"

void use(AmbrelRecoveryCredentialSession& session) {
    session.invalidate();
#ifdef MUST_NOT_COMPILE
    const AmbrelRecoveryCredentialSession copy(session);
#endif
}
