#include "AmbrelLocalization/StringCatalogue.h"

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
    : preferences_(std::move(preferences)), tables_(resourceBundle(application)) {}

QString StringCatalogue::text(std::string_view key, const std::optional<QString>& localeIdentifier) const {
    const std::optional<AmbrelInterfaceLanguage> wanted = language(localeIdentifier);
    if (wanted) {
        if (const auto text = textInTable(*wanted, key)) {
            return *text;
        }
    }
    if (wanted != AmbrelInterfaceLanguage::english) {
        if (const auto text = textInTable(AmbrelInterfaceLanguage::english, key)) {
            return *text;
        }
    }
    return QString::fromUtf8(key.data(), static_cast<qsizetype>(key.size()));
}

std::optional<AmbrelInterfaceLanguage> StringCatalogue::language(const std::optional<QString>& localeIdentifier) const {
    if (!localeIdentifier) {
        return preferences_.load().shown();
    }
    const std::optional<AmbrelInterfaceLanguage> named = AmbrelInterfaceLanguage::fromRawValue(*localeIdentifier);
    // As an identifier, "system" names no table; as a stored choice, it selects the system's language.
    return named == AmbrelInterfaceLanguage::system ? std::nullopt : named;
}

std::optional<QString> StringCatalogue::textInTable(AmbrelInterfaceLanguage language, std::string_view key) const {
    const std::shared_ptr<const StringTable> table = tables_.table(language);
    return table ? table->text(key) : std::nullopt;
}
