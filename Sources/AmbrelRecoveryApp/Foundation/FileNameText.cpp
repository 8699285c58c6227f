#include "AmbrelRecoveryApp/Foundation/FileNameText.h"

#include <QList>
#include <QStringDecoder>

namespace {

constexpr char32_t firstControlPicture = 0x2400;
constexpr char32_t deletePicture = 0x2421;
constexpr char32_t deleteCharacter = 0x7F;
constexpr char32_t firstPrintable = 0x20;

bool joinsLetters(char32_t character) {
    // Persian, Hindi and composed emoji are spelled with these two.
    return character == 0x200C || character == 0x200D;
}

bool isUnreadable(char32_t character) {
    switch (QChar::category(character)) {
    case QChar::Other_Control:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    case QChar::Other_Format:
        return !joinsLetters(character);
    default:
        return false;
    }
}

QString shown(char32_t character) {
    if (character < firstPrintable) {
        return QChar(static_cast<char16_t>(firstControlPicture + character));
    }
    if (character == deleteCharacter) {
        return QChar(static_cast<char16_t>(deletePicture));
    }
    return QStringLiteral("[U+%1]").arg(static_cast<uint>(character), 4, 16, QChar(u'0')).toUpper();
}

} // namespace

QString FileNameText::readable(std::string_view name) {
    // Unlike QString::fromUtf8(), this keeps a leading byte order mark, which is part of the name.
    QStringDecoder decoder(QStringDecoder::Utf8,
                           QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    const QString text = decoder(QByteArrayView(name.data(), static_cast<qsizetype>(name.size())));
    QString result;
    result.reserve(text.size());
    for (const char32_t character : text.toUcs4()) {
        result += isUnreadable(character) ? shown(character) : QString::fromUcs4(&character, 1);
    }
    return result;
}

QString FileNameText::isolated(const QString& text) {
    return firstStrongIsolate + text + popDirectionalIsolate;
}
