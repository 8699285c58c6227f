#include "AmbrelRecoveryAppSupport/SecretBytes.h"

#include <string>

void use(const std::string& text) {
    static_cast<void>(SecretBytes::copyOf(std::as_bytes(std::span(text.data(), text.size()))));
#ifdef MUST_NOT_COMPILE
    static_cast<void>(SecretBytes(text));
#endif
}
