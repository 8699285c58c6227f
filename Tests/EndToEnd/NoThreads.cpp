// Preloaded into the application: while the file AMBREL_NO_THREADS is there, the system has no thread for the standard
// library. The toolkit's own threads are left alone, since it ends the process where it gets none.

#include <cerrno>
#include <cstdlib>
#include <string_view>

#include <dlfcn.h>
#include <pthread.h>
#include <unistd.h>

namespace {

using Start = void* (*)(void*);
using Creation = int (*)(pthread_t*, const pthread_attr_t*, Start, void*);

bool isStandardLibrary(const void* caller) {
    Dl_info information{};
    return ::dladdr(caller, &information) != 0 &&
           std::string_view(information.dli_fname).find("libstdc++") != std::string_view::npos;
}

bool isShort() {
    const char* const sign = std::getenv("AMBREL_NO_THREADS");
    return sign != nullptr && ::access(sign, F_OK) == 0;
}

} // namespace

// Named by its label, as the system's header declares a function of this name with attributes of its own.
extern "C" {

[[gnu::visibility("default")]] int lacking_pthread_create(pthread_t* thread, const pthread_attr_t* attributes,
                                                          Start start, void* context) __asm__("pthread_create");

int lacking_pthread_create(pthread_t* thread, const pthread_attr_t* attributes, Start start, void* context) {
    static const auto next = reinterpret_cast<Creation>(::dlsym(RTLD_NEXT, "pthread_create"));
    if (isStandardLibrary(__builtin_return_address(0)) && isShort()) {
        return EAGAIN;
    }
    return next(thread, attributes, start, context);
}

} // extern "C"
