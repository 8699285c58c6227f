#include "AmbrelRecoveryAppSupport/SecretBytes.h"

#include <string>

void use(const SecretBytes& secret) {
    static_cast<void>(std::string(secret.size(), '*'));
#ifdef MUST_NOT_COMPILE
    static_cast<void>(std::string(secret));
#endif
}
