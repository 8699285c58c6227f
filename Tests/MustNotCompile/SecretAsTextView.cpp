#include "AmbrelRecoveryAppSupport/SecretBytes.h"

#include <string_view>

void use(const SecretBytes& secret) {
    static_cast<void>(std::string_view());
    static_cast<void>(secret.bytes());
#ifdef MUST_NOT_COMPILE
    static_cast<void>(std::string_view(secret));
#endif
}
