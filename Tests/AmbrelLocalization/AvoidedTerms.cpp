#include "AvoidedTerms.h"

#include <QFile>

#include <algorithm>
#include <iterator>

QStringList avoidedTerms(const std::string& locale) {
    QFile page(QStringLiteral(AMBREL_LANGUAGE_PAGES "/%1.md").arg(QString::fromStdString(locale)));
    if (!page.open(QIODevice::ReadOnly)) {
        return {};
    }
    const QStringList lines = QString::fromUtf8(page.readAll()).split(u'\n');
    const qsizetype heading = lines.indexOf(QStringLiteral("## Avoided terms"));
    const qsizetype firstRow =
        lines.indexOf(QStringLiteral("| --- | --- | --- |"), std::max<qsizetype>(heading, 0)) + 1;
    QStringList terms;
    for (qsizetype row = firstRow; heading >= 0 && row < lines.size() && lines[row].startsWith(u'|'); ++row) {
        terms.append(lines[row].section(u'|', 1, 1).trimmed());
    }
    return terms;
}

QStringList avoidedTermsIn(const QString& text, const QStringList& avoided) {
    QStringList found;
    std::ranges::copy_if(avoided, std::back_inserter(found),
                         [&text](const QString& term) { return text.contains(term, Qt::CaseInsensitive); });
    return found;
}
