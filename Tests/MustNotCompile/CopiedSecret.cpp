#include "AmbrelRecoveryAppSupport/SecretBytes.h"

void use(const SecretBytes& secret) {
    static_cast<void>(SecretBytes::copyOf(secret.bytes()));
#ifdef MUST_NOT_COMPILE
    const SecretBytes copy = secret;
#endif
}
