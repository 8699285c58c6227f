#include "AmbrelRecoveryAppSupport/SecretBytes.h"

#include <utility>

void use(SecretBytes& first, SecretBytes& second) {
    first = std::move(second);
#ifdef MUST_NOT_COMPILE
    first = second;
#endif
}
