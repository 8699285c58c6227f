#pragma once

#include <QByteArray>
#include <QString>

#include <ostream>

// GoogleTest shows failed comparisons through this.
void PrintTo(const QString& text, std::ostream* stream);

/// Until the end of the scope the system asks for another language than English.
class ScopedLanguage {
public:
    /// `language` is a language tag such as "de", `locale` the POSIX locale that goes with it.
    ScopedLanguage(const char* language, const char* locale);
    ScopedLanguage(const ScopedLanguage&) = delete;
    ScopedLanguage& operator=(const ScopedLanguage&) = delete;
    ~ScopedLanguage();

private:
    const QByteArray previousLanguage_;
    const QByteArray previousLocale_;
};

/// Makes the program independent of the user's settings: English, UTC, no stored language. To be called first in main.
void prepareEnvironment();
