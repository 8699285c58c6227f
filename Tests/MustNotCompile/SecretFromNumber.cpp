#include "AmbrelRecoveryAppSupport/SecretBytes.h"

void use() {
    static_cast<void>(SecretBytes(16));
#ifdef MUST_NOT_COMPILE
    const SecretBytes secret = 16;
#endif
}
