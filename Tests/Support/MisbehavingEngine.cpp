#include "Support/MisbehavingEngine.h"

std::filesystem::path misbehavingEngine() {
    return AMBREL_MISBEHAVING_ENGINE;
}
