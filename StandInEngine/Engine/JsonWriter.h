#pragma once

#include <concepts>
#include <string>
#include <string_view>

/// Writes JSON without white space. The caller is responsible for the order of calls: inside an object, a key and then
/// its value.
class JsonWriter {
public:
    void beginObject() { open('{'); }
    void endObject() { close('}'); }
    void beginArray() { open('['); }
    void endArray() { close(']'); }

    void key(std::string_view name);

    /// `text` is UTF-8.
    void value(std::string_view text);
    void value(const char* text) { value(std::string_view(text)); }
    void value(const std::string& text) { value(std::string_view(text)); }
    void value(bool truth);
    void null();
    template<std::integral Number>
    void value(Number number) {
        separate();
        text_ += std::to_string(number);
    }

    template<typename Value>
    void member(std::string_view name, const Value& memberValue) {
        key(name);
        value(memberValue);
    }

    const std::string& text() const { return text_; }

private:
    void open(char bracket);
    void close(char bracket);
    void separate();
    void quote(std::string_view text);

    std::string text_;
    bool needsComma_ = false;
};
