#include "AmbrelRecoveryApp/Controls/ClipboardSecret.h"

#include "AmbrelRecoveryApp/Foundation/MainThread.h"

#include <QGuiApplication>

#include <cstring>
#include <utility>

namespace {

bool isLineBreak(QChar character) {
    return character == u'\n' || character == u'\r' || character == QChar::LineSeparator ||
           character == QChar::ParagraphSeparator;
}

QStringView withoutOuterLineBreaks(QStringView text) {
    while (!text.isEmpty() && isLineBreak(text.back())) {
        text.chop(1);
    }
    while (!text.isEmpty() && isLineBreak(text.front())) {
        text = text.sliced(1);
    }
    return text;
}

SecretText onOneLine(QStringView text) {
    SecretBytes line(static_cast<std::size_t>(text.size()) * sizeof(char16_t));
    std::size_t length = 0;
    for (qsizetype index = 0; index < text.size(); ++index) {
        const bool isFirstOfTwo = text[index] == u'\r' && text[index + 1] == u'\n';
        if (!isFirstOfTwo) {
            const char16_t unit = isLineBreak(text[index]) ? u' ' : text[index].unicode();
            std::memcpy(line.bytes().data() + length, &unit, sizeof(unit));
            length += sizeof(unit);
        }
    }
    return SecretText(
        {reinterpret_cast<const char16_t*>(line.bytes().data()), static_cast<qsizetype>(length / sizeof(char16_t))});
}

} // namespace

SecretText ClipboardSecret::line(QClipboard::Mode mode) {
    MainThread::require();
    QString text = QGuiApplication::clipboard()->text(mode);
    SecretText line = onOneLine(withoutOuterLineBreaks(text));
    text.fill(QChar());
    return line;
}
