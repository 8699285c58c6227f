#include "AmbrelRecoveryApp/Secrets/SecretText.h"

#include <QStringConverter>

#include <algorithm>
#include <cstring>

SecretText::SecretText(QStringView text) : units_(static_cast<std::size_t>(text.size()) * sizeof(char16_t)) {
    if (!text.isEmpty()) {
        std::memcpy(units_.bytes().data(), text.utf16(), units_.size());
    }
}

SecretText SecretText::ofUtf8(const SecretBytes& bytes) {
    // A mark at the start is a character of the secret like any other.
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
