// Looking up a text and loading a table, compared with alternatives. Only the first two lookups notice immediately that
// another process has changed the language; the others never check.

#include "AmbrelLocalization/AmbrelInterfaceLanguagePreferenceStore.h"
#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelLocalization/AmbrelUserDefaults.h"
#include "AmbrelLocalization/StringTableFile.h"

#include <QFile>
#include <QHash>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSettings>
#include <QTemporaryDir>
#include <QTranslator>
#include <benchmark/benchmark.h>
#include <unicode/resbund.h>
#include <unicode/ures.h>

#include <array>
#include <clocale>
#include <cstdlib>
#include <thread>

#include <libintl.h>
#include <sys/stat.h>

namespace {

constexpr const char* key = "ambrel.recovery.choose-package.action";

const QString& storageKey() {
    static const QString text = AmbrelInterfaceLanguagePreferenceStore::defaultStorageKey();
    return text;
}

QString settingsPath() {
    return QString::fromStdString(AmbrelUserDefaults::standard()->path());
}

QHash<QString, QString> hashFromJson() {
    QFile file(QStringLiteral(AMBREL_ENGLISH_TABLE));
    QHash<QString, QString> texts;
    if (file.open(QIODevice::ReadOnly)) {
        const QJsonObject object = QJsonDocument::fromJson(file.readAll()).object();
        for (auto entry = object.begin(); entry != object.end(); ++entry) {
            texts.insert(entry.key(), entry.value().toString());
        }
    }
    return texts;
}

/// The comparison would be worthless if the other library did not find the text.
void require(benchmark::State& state, const QString& text) {
    if (text != AmbrelStrings::resolved(LocalizedStringResource(key), QStringLiteral("en"))) {
        state.SkipWithError("the text was not found");
    }
}

void lookupAmbrel(benchmark::State& state) {
    require(state, AmbrelStrings::localized(AmbrelStrings::recoveryChoosePackageAction()));
    for (auto _ : state) {
        benchmark::DoNotOptimize(AmbrelStrings::localized(AmbrelStrings::recoveryChoosePackageAction()));
    }
}
BENCHMARK(lookupAmbrel);

void lookupFreshSettingsAndHash(benchmark::State& state) {
    const QHash<QString, QHash<QString, QString>> tables = {{QStringLiteral("en"), hashFromJson()}};
    const QString path = settingsPath();
    const auto lookup = [&] {
        const QSettings settings(path, QSettings::IniFormat);
        return tables.value(settings.value(storageKey()).toString()).value(QString::fromLatin1(key));
    };
    require(state, lookup());
    for (auto _ : state) {
        benchmark::DoNotOptimize(lookup());
    }
}
BENCHMARK(lookupFreshSettingsAndHash);

void lookupTwoStatCallsAlone(benchmark::State& state) {
    const std::string settings = settingsPath().toStdString();
    struct stat status = {};
    for (auto _ : state) {
        benchmark::DoNotOptimize(::stat(settings.c_str(), &status));
        benchmark::DoNotOptimize(::stat(AMBREL_ENGLISH_TABLE, &status));
    }
}
BENCHMARK(lookupTwoStatCallsAlone);

void lookupGettext(benchmark::State& state) {
    const auto lookup = [] { return QString::fromUtf8(::gettext(key)); };
    require(state, lookup());
    for (auto _ : state) {
        benchmark::DoNotOptimize(lookup());
    }
}
BENCHMARK(lookupGettext);

void lookupQTranslator(benchmark::State& state) {
    QTranslator translator;
    const bool isLoaded = translator.load(QStringLiteral(AMBREL_OTHER_TABLES "/ambrel.qm"));
    const auto lookup = [&] { return isLoaded ? translator.translate(nullptr, key) : QString(); };
    require(state, lookup());
    for (auto _ : state) {
        benchmark::DoNotOptimize(lookup());
    }
}
BENCHMARK(lookupQTranslator);

void lookupIcuResourceBundle(benchmark::State& state) {
    UErrorCode status = U_ZERO_ERROR;
    UResourceBundle* bundle = ures_openDirect(AMBREL_OTHER_TABLES "/ambrel", "root", &status);
    const auto lookup = [&] {
        std::int32_t length = 0;
        const char16_t* text = ures_getStringByKey(bundle, key, &length, &status);
        return U_SUCCESS(status) ? QStringView(text, length).toString() : QString();
    };
    require(state, lookup());
    for (auto _ : state) {
        benchmark::DoNotOptimize(lookup());
    }
    ures_close(bundle);
}
BENCHMARK(lookupIcuResourceBundle);

void loadAmbrel(benchmark::State& state) {
    for (auto _ : state) {
        const auto table = StringTableFile(AMBREL_ENGLISH_TABLE).current();
        if (!table || table->size() != AmbrelStrings::interfaceResources().size()) {
            state.SkipWithError("the table was not loaded");
        }
    }
}
BENCHMARK(loadAmbrel);

void loadQJsonDocument(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(hashFromJson());
    }
}
BENCHMARK(loadQJsonDocument);

// These two map their file and decode each text on demand, so loading does little work.
void loadQTranslator(benchmark::State& state) {
    for (auto _ : state) {
        QTranslator translator;
        benchmark::DoNotOptimize(translator.load(QStringLiteral(AMBREL_OTHER_TABLES "/ambrel.qm")));
    }
}
BENCHMARK(loadQTranslator);

void resolveSystemLanguage(benchmark::State& state) {
    const QStringList preferred = {QStringLiteral("nl-NL"), QStringLiteral("zh-Hant-TW")};
    for (auto _ : state) {
        benchmark::DoNotOptimize(AmbrelStrings::resolvedSystemLocaleIdentifier(preferred));
    }
}
BENCHMARK(resolveSystemLanguage);

} // namespace

int main(int argumentCount, char** arguments) {
    // Use a choice of the benchmarks' own instead of the user's. With this locale, gettext reads LANGUAGE.
    const QTemporaryDir configuration;
    ::setenv("XDG_CONFIG_HOME", configuration.path().toUtf8().constData(), 1);
    ::setenv("LANGUAGE", "en", 1);
    std::setlocale(LC_ALL, "C.UTF-8");
    ::bindtextdomain("ambrel", AMBREL_OTHER_TABLES);
    ::textdomain("ambrel");
    AmbrelInterfaceLanguagePreferenceStore(AmbrelUserDefaults::standard(), storageKey())
        .save(AmbrelInterfaceLanguage::english);
    // Right after a change, every lookup rereads the file, which is not what is measured here.
    std::this_thread::sleep_for(std::chrono::milliseconds(100));

    benchmark::Initialize(&argumentCount, arguments);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
