#pragma once

#include <QString>
#include <QStringList>

#include <string>

/// The terms that no text of the language `locale` may contain, from the table “Avoided terms” of its page in
/// Docs/Localization.
QStringList avoidedTerms(const std::string& locale);

/// The terms of `avoided` that `text` contains, in any letter case.
QStringList avoidedTermsIn(const QString& text, const QStringList& avoided);
