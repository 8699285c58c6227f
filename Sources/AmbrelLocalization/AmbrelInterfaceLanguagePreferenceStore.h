#pragma once

#include "AmbrelLocalization/AmbrelInterfaceLanguage.h"

#include <QString>

#include <memory>

class AmbrelUserDefaults;

/// Keeps the user's choice of an interface language under one key of the user defaults.
/// May be used on any thread; nothing throws.
class AmbrelInterfaceLanguagePreferenceStore {
public:
    /// The key under which the module stores the current choice: "ambrel.interface-language.v1".
    static QString defaultStorageKey();

    /// `userDefaults` must not be null; it is shared for the store's lifetime.
    AmbrelInterfaceLanguagePreferenceStore(std::shared_ptr<AmbrelUserDefaults> userDefaults, QString storageKey);

    const std::shared_ptr<AmbrelUserDefaults>& userDefaults() const { return userDefaults_; }
    const QString& storageKey() const { return storageKey_; }

    /// Reads the stored choice; returns `system` if nothing valid is stored.
    AmbrelInterfaceLanguage load() const;

    /// Stores the language's id as text; `system` is stored as "system". If writing fails (no permission, disk full),
    /// the stored choice is unchanged.
    void save(AmbrelInterfaceLanguage language);

private:
    std::shared_ptr<AmbrelUserDefaults> userDefaults_;
    QString storageKey_;
};
