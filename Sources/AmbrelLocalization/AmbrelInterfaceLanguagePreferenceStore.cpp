#include "AmbrelLocalization/AmbrelInterfaceLanguagePreferenceStore.h"

#include "AmbrelLocalization/AmbrelUserDefaults.h"

#include <utility>

QString AmbrelInterfaceLanguagePreferenceStore::defaultStorageKey() {
    return QStringLiteral("ambrel.interface-language.v1");
}

AmbrelInterfaceLanguagePreferenceStore::AmbrelInterfaceLanguagePreferenceStore(
    std::shared_ptr<AmbrelUserDefaults> userDefaults, QString storageKey)
    : userDefaults_(std::move(userDefaults)), storageKey_(std::move(storageKey)) {}

AmbrelInterfaceLanguage AmbrelInterfaceLanguagePreferenceStore::load() const {
    return AmbrelInterfaceLanguage::fromStoredValue(userDefaults_->string(storageKey_));
}

void AmbrelInterfaceLanguagePreferenceStore::save(AmbrelInterfaceLanguage language) {
    userDefaults_->setString(storageKey_, language.id());
}
