#include "AmbrelRecoveryAppSupport/UniqueDescriptor.h"

void take(UniqueDescriptor descriptor);

void use(int number) {
    take(UniqueDescriptor(number));
#ifdef MUST_NOT_COMPILE
    take(number);
#endif
}
