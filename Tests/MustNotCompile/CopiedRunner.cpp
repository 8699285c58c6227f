#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessRunner.h"

void use(AmbrelRecoveryProcessRunner& runner) {
    runner.cancelCurrentOperation();
#ifdef MUST_NOT_COMPILE
    const AmbrelRecoveryProcessRunner copy(runner);
#endif
}
