#include "AmbrelRecoveryAppSupport/UniqueDescriptor.h"

#include <utility>

void use(UniqueDescriptor& descriptor) {
    const UniqueDescriptor moved(std::move(descriptor));
#ifdef MUST_NOT_COMPILE
    const UniqueDescriptor copy(descriptor);
#endif
}
