#pragma once

#include <QString>
#include <unicode/uscript.h>

#include <set>
#include <string>
#include <vector>

// The rules that hold for every text of a language, whichever table it stands in.

/// What is wrong with the signs and the letters of `text` in the language of the catalogue `locale`: the name of every
/// rule of the language that it breaks. Placeholders count as numbers, in Arabic as words.
std::vector<std::string> textFaults(const std::string& locale, const QString& text);

/// The text without its placeholders.
QString withoutPlaceholders(const QString& text);

/// The scripts of a text's letters, without those that belong to every script and without the placeholders.
std::set<UScriptCode> scripts(const QString& text);

/// The scripts that a language is written in, besides the Latin one of names.
std::set<UScriptCode> scriptsOfLocale(const std::string& locale);
