#include "Fuzz/DocumentChecks.h"

#include <simdjson.h>

void DocumentChecks::expectText(const JsonReading& reading, std::string_view key, const std::string& decoded) {
    Fuzzing::expect(simdjson::validate_utf8(decoded), "a decoded text is UTF-8");
    if (const auto value = reading.value(key)) {
        Fuzzing::expect(value->isString() && value->toString().toStdString() == decoded,
                        "a text is the one of the document");
    }
}
