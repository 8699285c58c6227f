// The settings file that holds the chosen language. Other programs, and the user, may have written it.

#include "AmbrelLocalization/AmbrelInterfaceLanguagePreferenceStore.h"
#include "AmbrelLocalization/AmbrelUserDefaults.h"
#include "AmbrelLocalization/SettingsText.h"
#include "Fuzz/Fuzzing.h"
#include "Support/TemporaryDirectory.h"
#include "Support/TestFiles.h"

#include <QRegularExpression>
#include <QSettings>

#include <filesystem>
#include <memory>
#include <string>

namespace {

using Fuzzing::expect;

std::optional<QString> textOf(const QSettings& settings, const QString& key) {
    const QVariant value = settings.value(key);
    return value.typeId() == QMetaType::QString ? std::optional(value.toString()) : std::nullopt;
}

/// Whether Qt took the text for a broken encoding of an object and gave it as it is. Here it counts as no text, until
/// Qt saves it as the text that it took it for.
bool isBrokenObject(const std::optional<QString>& text) {
    static const QRegularExpression object(QStringLiteral("\\A@(Variant|DateTime|Rect|Size|Point)\\(.*\\)\\z"),
                                           QRegularExpression::DotMatchesEverythingOption);
    return text && object.match(*text).hasMatch();
}

/// Keys that mean the same in the file and to QSettings, which puts the slashes of a key in order before it looks.
bool isPlain(const QString& key) {
    return !key.isEmpty() && !key.startsWith(u'/') && !key.endsWith(u'/') && !key.contains(QStringLiteral("//"));
}

/// A file name that QSettings has forgotten: it remembers the last few files by name, size and time.
std::filesystem::path nextPath() {
    static const TemporaryDirectory folder;
    static unsigned number = 0;
    return folder / (std::to_string(++number % 64) + ".conf");
}

void expectSaved(const std::filesystem::path& path, const SettingsText& before, const QStringList& keys) {
    const QString languageKey = AmbrelInterfaceLanguagePreferenceStore::defaultStorageKey();
    const auto defaults = std::make_shared<AmbrelUserDefaults>(path);
    AmbrelInterfaceLanguagePreferenceStore store(defaults, languageKey);
    const QString stored = before.text(languageKey).value_or(QString());
    expect(store.load() == AmbrelInterfaceLanguage::fromStoredValue(before.text(languageKey)),
           "the stored text decides about the language");
    expect(defaults->setString(languageKey, stored), "a text can be saved");
    expect(defaults->string(languageKey) == stored, "a saved text is read as it was");
    store.save(AmbrelInterfaceLanguage::japanese);
    expect(store.load() == AmbrelInterfaceLanguage::japanese, "a saved language is read");
    for (const QString& key : keys) {
        expect(key == languageKey || defaults->string(key) == before.text(key), "saving keeps every other text");
    }
}

/// Compares all texts of the file, and gives the keys under which QSettings finds the same.
QStringList expectSameAsQt(const std::filesystem::path& path, const SettingsText& ours) {
    const QSettings settings(QString::fromStdString(path), QSettings::IniFormat);
    QStringList same;
    for (const QString& key :
         settings.allKeys() + QStringList{AmbrelInterfaceLanguagePreferenceStore::defaultStorageKey()}) {
        const std::optional<QString> read = textOf(settings, key);
        if (isPlain(key) && !isBrokenObject(read)) {
            expect(ours.text(key) == read, "a text is the one that Qt reads");
            same.append(key);
        }
    }
    return same;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes = Fuzzing::text(data, size);
    const SettingsText ours = SettingsText::decoded(bytes);
    // What Qt makes of broken UTF-8 and of a byte order mark depends on where its decoder takes its breaks.
    const bool hasMark = bytes.find("\xEF\xBB\xBF") != std::string_view::npos;
    if (hasMark || !QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())).isValidUtf8()) {
        return 0;
    }
    const std::filesystem::path path = nextPath();
    TestFiles::write(path, bytes);
    const QStringList keys = expectSameAsQt(path, ours);
    // A save costs a hundred times as much as all the rest.
    if (size % 8 == 0 && ours.text(AmbrelInterfaceLanguagePreferenceStore::defaultStorageKey())) {
        expectSaved(path, ours, keys);
    }
    std::filesystem::remove(path);
    return 0;
}
