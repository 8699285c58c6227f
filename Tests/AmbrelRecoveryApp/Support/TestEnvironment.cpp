#include "TestEnvironment.h"

#include <QTemporaryDir>

void PrintTo(const QString& text, std::ostream* stream) {
    *stream << '"' << text.toStdString() << '"';
}

ScopedLanguage::ScopedLanguage(const char* language, const char* locale)
    : previousLanguage_(qgetenv("LANGUAGE")), previousLocale_(qgetenv("LC_ALL")) {
    qputenv("LANGUAGE", language);
    qputenv("LC_ALL", locale);
}

ScopedLanguage::~ScopedLanguage() {
    qputenv("LANGUAGE", previousLanguage_);
    qputenv("LC_ALL", previousLocale_);
}

void prepareEnvironment() {
    static const QTemporaryDir settings;
    qputenv("XDG_CONFIG_HOME", settings.path().toLocal8Bit());
    qputenv("LANGUAGE", "en");
    qputenv("LC_ALL", "en_US.UTF-8");
    qputenv("TZ", "UTC");
    qputenv("QT_QPA_PLATFORM", "offscreen");
}
