#include "AmbrelLocalization/StringCatalogue.h"

#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelLocalization/AmbrelUserDefaults.h"
#include "AmbrelLocalization/resource_bundle_accessor.h"

#include <system_error>
#include <utility>

namespace {

std::filesystem::path resourceBundle(const ApplicationBundle& application) {
    if (const auto resources = application.resourcePath()) {
        std::error_code error;
        std::filesystem::path bundle = *resources / ResourceBundleAccessor::bundleName;
        if (std::filesystem::is_directory(bundle, error)) {
            return bundle;
        }
    }
    return ResourceBundleAccessor::moduleBundle();
}

} // namespace

const StringCatalogue& StringCatalogue::ofProcess() {
    static const StringCatalogue catalogue(
        ApplicationBundle::mainBundle(),
        AmbrelInterfaceLanguagePreferenceStore(AmbrelUserDefaults::standard(),
                                               AmbrelInterfaceLanguagePreferenceStore::defaultStorageKey()));
    return catalogue;
}

StringCatalogue::StringCatalogue(const ApplicationBundle& application,
                                 AmbrelInterfaceLanguagePreferenceStore preferences)
    : preferences_(std::move(preferences)) {
    const std::filesystem::path bundle = resourceBundle(application);
    for (const QString& identifier : AmbrelStrings::completeLocaleIdentifiers()) {
        tables_.try_emplace(identifier, bundle / (identifier.toStdString() + ".lproj") / "Localizable.json");
    }
    // English replaces missing texts of other languages, even after the bundle has been removed.
    tables_.at(AmbrelStrings::sourceLocaleIdentifier()).current();
}

QString StringCatalogue::text(std::string_view key, const std::optional<QString>& localeIdentifier) const {
    const QString wanted = localeIdentifier ? *localeIdentifier : preferences_.load().shown().rawValue();
    for (const QString& identifier : {wanted, AmbrelStrings::sourceLocaleIdentifier()}) {
        const auto file = tables_.find(identifier);
        const auto table = file != tables_.end() ? file->second.current() : nullptr;
        if (const auto text = table ? table->text(key) : std::nullopt) {
            return *text;
        }
    }
    return QString::fromUtf8(key.data(), static_cast<qsizetype>(key.size()));
}
