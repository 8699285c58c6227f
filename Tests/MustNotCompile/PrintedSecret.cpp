#include "AmbrelRecoveryAppSupport/SecretBytes.h"

#include <ostream>

void use(std::ostream& stream, const SecretBytes& secret) {
    stream << secret.size();
#ifdef MUST_NOT_COMPILE
    stream << secret;
#endif
}
