#include "AmbrelRecoveryApp/Secrets/SecretText.h"

#include <QStringConverter>

#include <algorithm>
#include <cstring>

namespace {

qsizetype lengthOfCharacter(QStringView units, qsizetype offset) {
    const bool isPair =
        units[offset].isHighSurrogate() && offset + 1 < units.size() && units[offset + 1].isLowSurrogate();
    return isPair ? 2 : 1;
}

qsizetype unitOffset(QStringView units, int character) {
    qsizetype offset = 0;
    for (int index = 0; index < character && offset < units.size(); ++index) {
        offset += lengthOfCharacter(units, offset);
    }
    return offset;
}

void copyUnits(SecretBytes& to, qsizetype offset, QStringView from) {
    if (!from.isEmpty()) {
        std::memcpy(to.bytes().data() + static_cast<std::size_t>(offset) * sizeof(char16_t), from.utf16(),
                    static_cast<std::size_t>(from.size()) * sizeof(char16_t));
    }
}

} // namespace

SecretText::SecretText(QStringView text) : units_(static_cast<std::size_t>(text.size()) * sizeof(char16_t)) {
    copyUnits(units_, 0, text);
}

SecretText SecretText::ofUtf8(const SecretBytes& bytes) {
    // A leading byte order mark is part of the secret.
    QStringDecoder decoder(QStringDecoder::Utf8,
                           QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    const QByteArrayView encoded(bytes.bytes().data(), static_cast<qsizetype>(bytes.size()));
    SecretBytes buffer(static_cast<std::size_t>(decoder.requiredSpace(encoded.size())) * sizeof(QChar));
    if (buffer.empty()) {
        return {};
    }
    auto* const begin = reinterpret_cast<QChar*>(buffer.bytes().data());
    const QChar* const end = decoder.appendToBuffer(begin, encoded);
    const auto size = static_cast<std::size_t>(end - begin) * sizeof(QChar);
    return SecretText(SecretBytes::copyOf(std::as_const(buffer).bytes().first(size)));
}

QStringView SecretText::view() const {
    return {reinterpret_cast<const char16_t*>(units_.bytes().data()),
            static_cast<qsizetype>(units_.size() / sizeof(char16_t))};
}

int SecretText::characterCount() const {
    int count = 0;
    for (qsizetype offset = 0; offset < view().size(); offset += lengthOfCharacter(view(), offset)) {
        ++count;
    }
    return count;
}

void SecretText::replace(int start, int end, QStringView text) {
    const QStringView before = view().first(unitOffset(view(), start));
    const QStringView after = view().sliced(unitOffset(view(), end));
    SecretBytes units(static_cast<std::size_t>(before.size() + text.size() + after.size()) * sizeof(char16_t));
    copyUnits(units, 0, before);
    copyUnits(units, before.size(), text);
    copyUnits(units, before.size() + text.size(), after);
    units_ = std::move(units);
}

bool SecretText::isBlank() const {
    return std::ranges::all_of(view(), [](QChar character) { return character.isSpace(); });
}

SecretBytes SecretText::utf8() const {
    QStringEncoder encoder(QStringEncoder::Utf8);
    SecretBytes buffer(static_cast<std::size_t>(encoder.requiredSpace(view().size())));
    if (buffer.empty()) {
        return buffer;
    }
    auto* const begin = reinterpret_cast<char*>(buffer.bytes().data());
    const char* const end = encoder.appendToBuffer(begin, view());
    return SecretBytes::copyOf(std::as_const(buffer).bytes().first(static_cast<std::size_t>(end - begin)));
}
