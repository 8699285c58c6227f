#pragma once

#include <dlfcn.h>

/// The definition behind one of the executable's own, as its libraries would find it without that: of a preloaded
/// library, else of the library that the function belongs to. Null where there is none. For code of the executable.
template<typename Function>
Function* nextDefinition(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}
