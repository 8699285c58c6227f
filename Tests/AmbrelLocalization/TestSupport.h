#pragma once

#include "AmbrelLocalization/AmbrelUserDefaults.h"
#include "Support/ScopedEnvironment.h"
#include "Support/TemporaryDirectory.h"
#include "Support/TestFiles.h"

#include <QString>

#include <filesystem>
#include <memory>
#include <ostream>
#include <string_view>

class AmbrelInterfaceLanguage;

// GoogleTest shows failed comparisons through these.
void PrintTo(const QString& text, std::ostream* stream);
void PrintTo(AmbrelInterfaceLanguage language, std::ostream* stream);

/// The variables that name languages and locales, all unset at first and put back at the end of the scope.
class ScopedLocaleVariables {
public:
    /// Sets one of them.
    void set(const char* name, const char* value);

private:
    ScopedEnvironment language_{"LANGUAGE", std::nullopt};
    ScopedEnvironment all_{"LC_ALL", std::nullopt};
    ScopedEnvironment messages_{"LC_MESSAGES", std::nullopt};
    ScopedEnvironment time_{"LC_TIME", std::nullopt};
    ScopedEnvironment lang_{"LANG", std::nullopt};
};

/// Until the end of the scope the program has no more rights than an ordinary user: permissions count for it.
class ScopedOrdinaryUser {
public:
    ScopedOrdinaryUser();
    ~ScopedOrdinaryUser();
    ScopedOrdinaryUser(const ScopedOrdinaryUser&) = delete;
    ScopedOrdinaryUser& operator=(const ScopedOrdinaryUser&) = delete;

private:
    bool isChanged_;
};

/// Writes the file anew without replacing it, and makes the directories on the way. Gives `path` back.
std::filesystem::path writeInPlace(const std::filesystem::path& path, std::string_view bytes);

/// Waits until the clock has left the step of time in which the file was written, so that the file counts as settled.
void waitUntilSettled(const std::filesystem::path& path);

/// The standard user defaults of this test program, with nothing in them.
std::shared_ptr<AmbrelUserDefaults> emptyStandardUserDefaults();
