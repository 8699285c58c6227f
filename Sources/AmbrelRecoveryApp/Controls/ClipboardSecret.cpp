#include "AmbrelRecoveryApp/Controls/ClipboardSecret.h"

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

SecretBytes onOneLine(QStringView text) {
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
    return SecretBytes::copyOf(std::as_const(line).bytes().first(length));
}

} // namespace

SecretBytes ClipboardSecret::line(QClipboard::Mode mode) {
    QString text = QGuiApplication::clipboard()->text(mode);
    SecretBytes line = onOneLine(withoutOuterLineBreaks(text));
    text.fill(QChar());
    return line;
}
