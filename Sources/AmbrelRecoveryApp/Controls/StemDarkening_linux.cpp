/// Text in the weight that its font gives it.
///
/// Qt has FreeType thicken the stems of fonts with PostScript outlines, Inter and Noto CJK among them: on the dark
/// ground of the window a regular text then looks medium and a medium one semibold. Qt offers no way to leave that out,
/// so the two functions that it asks FreeType with are answered here, in the program itself, for this one property.

#include "AmbrelRecoveryApp/NextDefinition.h"

#include <string_view>

namespace {

using namespace std::literals;

/// What FreeType answers where a driver does not have a property.
constexpr int missingProperty = 0x0C;

bool isStemDarkening(const char* property) {
    return property && property == "no-stem-darkening"sv;
}

} // namespace

// NOLINTBEGIN(readability-identifier-naming): FreeType's names.
extern "C" {

using PropertySetter = int(void* library, const char* module, const char* property, const void* value);
using PropertyGetter = int(void* library, const char* module, const char* property, void* value);

[[gnu::visibility("default")]] int FT_Property_Set(void* library, const char* module, const char* property,
                                                   const void* value) {
    static auto* const next = nextDefinition<PropertySetter>("FT_Property_Set");
    return next && !isStemDarkening(property) ? next(library, module, property, value) : missingProperty;
}

[[gnu::visibility("default")]] int FT_Property_Get(void* library, const char* module, const char* property,
                                                   void* value) {
    static auto* const next = nextDefinition<PropertyGetter>("FT_Property_Get");
    return next && !isStemDarkening(property) ? next(library, module, property, value) : missingProperty;
}

} // extern "C"
// NOLINTEND(readability-identifier-naming)
