// Saves a choice of language in the standard user defaults, as another program of the product does:
//   AmbrelLanguageSaver LANGUAGE
// Or saves it again and again under a key of its own, and looks each time whether it is still there:
//   AmbrelLanguageSaver LANGUAGE KEY TIMES READY GATE
// Then it writes a line to the pipe READY, and begins when it has read a byte from the pipe GATE.

#include "AmbrelLocalization/AmbrelInterfaceLanguagePreferenceStore.h"
#include "AmbrelLocalization/AmbrelUserDefaults.h"

#include <cstdlib>
#include <fstream>

namespace {

bool saveAgainAndAgain(AmbrelInterfaceLanguage language, const char* const* arguments) {
    AmbrelInterfaceLanguagePreferenceStore store(AmbrelUserDefaults::standard(), QString::fromUtf8(arguments[0]));
    const int times = std::atoi(arguments[1]);
    std::ofstream(arguments[2]) << "ready\n";
    // Unbuffered, so that the byte of another process stays in the pipe.
    std::ifstream gate;
    gate.rdbuf()->pubsetbuf(nullptr, 0);
    gate.open(arguments[3]);
    gate.get();
    for (int round = 0; round < times; ++round) {
        const AmbrelInterfaceLanguage saved = round % 2 == 0 ? language : AmbrelInterfaceLanguage::english;
        store.save(saved);
        if (store.load() != saved) {
            return false;
        }
    }
    store.save(language);
    return store.load() == language;
}

} // namespace

int main(int argumentCount, char** arguments) {
    const auto language =
        AmbrelInterfaceLanguage::fromRawValue(QString::fromUtf8(argumentCount > 1 ? arguments[1] : ""));
    if (!language || (argumentCount != 2 && argumentCount != 6)) {
        return EXIT_FAILURE;
    }
    if (argumentCount == 6) {
        return saveAgainAndAgain(*language, arguments + 2) ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    AmbrelInterfaceLanguagePreferenceStore(AmbrelUserDefaults::standard(),
                                           AmbrelInterfaceLanguagePreferenceStore::defaultStorageKey())
        .save(*language);
    return EXIT_SUCCESS;
}
