#pragma once

#include <dlfcn.h>

/// Returns the definition that a function of the executable overrides, as the libraries would find it otherwise: that
/// of a preloaded library, or else of the library that the function belongs to. Null if there is none. For code in the
/// executable only.
template<typename Function>
Function* nextDefinition(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}
