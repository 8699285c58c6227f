#include "ThreadShortage.h"

#include <cerrno>

#include <dlfcn.h>
#include <pthread.h>

namespace {

thread_local bool isShort = false;

using Start = void* (*)(void*);
using Creation = int (*)(pthread_t*, const pthread_attr_t*, Start, void*);

} // namespace

ThreadShortage::ThreadShortage() {
    isShort = true;
}

ThreadShortage::~ThreadShortage() {
    isShort = false;
}

// Named by its label, as the system's header declares a function of this name with attributes of its own.
extern "C" {

int lacking_pthread_create(pthread_t* thread, const pthread_attr_t* attributes, Start start,
                           void* context) __asm__("pthread_create");

int lacking_pthread_create(pthread_t* thread, const pthread_attr_t* attributes, Start start, void* context) {
    static const auto next = reinterpret_cast<Creation>(::dlsym(RTLD_NEXT, "pthread_create"));
    return isShort ? EAGAIN : next(thread, attributes, start, context);
}

} // extern "C"
