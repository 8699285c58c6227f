// A table of texts, as a translator or a damaged disk may have left it.

#include "AmbrelLocalization/StringTable.h"
#include "Fuzz/Fuzzing.h"
#include "Fuzz/JsonReading.h"

#include <string>
#include <utility>

namespace {

using Fuzzing::expect;

void expectSameAsRead(const StringTable& table, const JsonReading& reading) {
    for (auto member = reading.object().constBegin(); member != reading.object().constEnd(); ++member) {
        const std::string key = member.key().toStdString();
        const std::optional<QString> text = table.text(key);
        expect(!text || !text->trimmed().isEmpty(), "a text of the table is not blank");
        expect(!text || text->isValidUtf16(), "a text of the table is text");
        if (!reading.isUnambiguous(key)) {
            continue;
        }
        const bool isShown = member->isString() && !member->toString().trimmed().isEmpty();
        expect(text.has_value() == isShown, "a text is there unless it is blank");
        expect(!isShown || *text == member->toString(), "a text is the one of the file");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view json = Fuzzing::text(data, size);
    StringTable table = StringTable::decoded(json);
    const JsonReading reading(json);
    expect(table.size() == 0 || reading.mayBeObject(), "only a JSON object gives texts");
    if (table.size() > 0) {
        expectSameAsRead(table, reading);
    }
    const std::optional<QString> before = table.text("ambrel.generic.cancel");
    const std::size_t count = table.size();
    const StringTable moved = std::move(table);
    expect(moved.size() == count && moved.text("ambrel.generic.cancel") == before, "a moved table keeps its texts");
    return 0;
}
