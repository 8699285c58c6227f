#include "Engine/JsonWriter.h"

void JsonWriter::key(std::string_view name) {
    separate();
    quote(name);
    text_ += ':';
    needsComma_ = false;
}

void JsonWriter::value(std::string_view text) {
    separate();
    quote(text);
}

void JsonWriter::value(bool truth) {
    separate();
    text_ += truth ? "true" : "false";
}

void JsonWriter::null() {
    separate();
    text_ += "null";
}

void JsonWriter::open(char bracket) {
    separate();
    text_ += bracket;
    needsComma_ = false;
}

void JsonWriter::close(char bracket) {
    text_ += bracket;
    needsComma_ = true;
}

void JsonWriter::separate() {
    if (needsComma_) {
        text_ += ',';
    }
    needsComma_ = true;
}

void JsonWriter::quote(std::string_view text) {
    constexpr std::string_view digits = "0123456789abcdef";
    text_ += '"';
    for (const char character : text) {
        const auto code = static_cast<unsigned char>(character);
        if (character == '"' || character == '\\') {
            text_ += '\\';
            text_ += character;
        } else if (code < 0x20) {
            text_ += "\\u00";
            text_ += digits[code >> 4];
            text_ += digits[code & 15];
        } else {
            text_ += character;
        }
    }
    text_ += '"';
}
