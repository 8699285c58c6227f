// Saves a choice of language in the standard user defaults, as another program of the product does.

#include "AmbrelLocalization/AmbrelInterfaceLanguagePreferenceStore.h"
#include "AmbrelLocalization/AmbrelUserDefaults.h"

#include <cstdlib>

int main(int argumentCount, char** arguments) {
    const auto language =
        AmbrelInterfaceLanguage::fromRawValue(QString::fromUtf8(argumentCount == 2 ? arguments[1] : ""));
    if (!language) {
        return EXIT_FAILURE;
    }
    AmbrelInterfaceLanguagePreferenceStore(AmbrelUserDefaults::standard(),
                                           AmbrelInterfaceLanguagePreferenceStore::defaultStorageKey())
        .save(*language);
    return EXIT_SUCCESS;
}
