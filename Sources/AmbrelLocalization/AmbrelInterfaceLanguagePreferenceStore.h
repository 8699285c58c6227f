#pragma once

#include "AmbrelLocalization/AmbrelInterfaceLanguage.h"

#include <QString>

#include <memory>

class AmbrelUserDefaults;

/// Keeps the user's choice of an interface language under one key of the user defaults.
/// May be used on any thread; nothing throws.
class AmbrelInterfaceLanguagePreferenceStore {
public:
    /// Where the whole module keeps the current choice: "ambrel.interface-language.v1".
    static QString defaultStorageKey();

    /// `userDefaults` must not be null; it is shared for the store's lifetime.
    AmbrelInterfaceLanguagePreferenceStore(std::shared_ptr<AmbrelUserDefaults> userDefaults, QString storageKey);

    const std::shared_ptr<AmbrelUserDefaults>& userDefaults() const { return userDefaults_; }
    const QString& storageKey() const { return storageKey_; }

    /// The stored choice, read afresh; `system` where nothing valid is stored.
    AmbrelInterfaceLanguage load() const;

    /// Stores the language's id as a text; `system` is stored as "system". A choice that cannot be written
    /// (no permission, disk full) leaves the stored one as it was.
    void save(AmbrelInterfaceLanguage language);

private:
    std::shared_ptr<AmbrelUserDefaults> userDefaults_;
    QString storageKey_;
};
