#include "AmbrelLocalization/AmbrelStrings.h"

#include "AmbrelLocalization/StringCatalogue.h"

namespace AmbrelStrings {

std::span<const LocalizedStringResource> interfaceResources() {
    static constexpr LocalizedStringResource resources[] = {
#define AMBREL_STRING(member, key) LocalizedStringResource(key),
#include "AmbrelLocalization/CatalogueKeys.inc"
#undef AMBREL_STRING
    };
    return resources;
}

QString localized(const LocalizedStringResource& resource) {
    return StringCatalogue::ofProcess().text(resource.key());
}

QString resolved(const LocalizedStringResource& resource, const std::optional<QString>& localeIdentifier) {
    return StringCatalogue::ofProcess().text(resource.key(), localeIdentifier);
}

} // namespace AmbrelStrings
