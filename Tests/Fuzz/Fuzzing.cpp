#include "Fuzz/Fuzzing.h"

#include <cstdio>
#include <cstdlib>

namespace Fuzzing {

void expect(bool isKept, const char* promise) {
    if (!isKept) {
        std::fprintf(stderr, "Not kept: %s\n", promise);
        std::abort();
    }
}

} // namespace Fuzzing
