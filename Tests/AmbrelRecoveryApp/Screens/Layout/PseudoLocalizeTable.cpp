// Writes the pseudo-localized form of a string table.
//
// Usage: pseudo-localize-table TABLE RESULT

#include "AmbrelLocalization/AmbrelPseudoLocalization.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>
#include <string>

namespace {

/// A format is left as it is: its placeholders would be altered, too.
QString pseudoLocalized(const QString& key, const QString& text) {
    const std::string name = key.toStdString();
    return text.contains(u'%') ? text : AmbrelPseudoLocalization::expanded(text, LocalizedStringResource(name));
}

} // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount != 3) {
        std::fputs("Usage: pseudo-localize-table TABLE RESULT\n", stderr);
        return 2;
    }
    QFile source(QFile::decodeName(arguments[1]));
    QFile result(QFile::decodeName(arguments[2]));
    if (!source.open(QIODevice::ReadOnly) || !result.open(QIODevice::WriteOnly)) {
        std::fputs("The table cannot be read, or the result not written.\n", stderr);
        return 1;
    }
    QJsonObject table = QJsonDocument::fromJson(source.readAll()).object();
    for (auto entry = table.begin(); entry != table.end(); ++entry) {
        *entry = pseudoLocalized(entry.key(), entry->toString());
    }
    const bool isWritten = !table.isEmpty() && result.write(QJsonDocument(table).toJson()) > 0 && result.flush();
    return isWritten ? 0 : 1;
}
