// The engine's report of an export, and the count of it that the last screen shows.

#include "AmbrelLocalization/AmbrelInterfaceLanguage.h"
#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryExportDocument.h"
#include "Fuzz/DocumentChecks.h"
#include "Fuzz/JsonShape.h"

#include <string>

namespace {

using Document = AmbrelRecoveryExportDocument;
using DocumentChecks::expectNumber;
using DocumentChecks::expectText;
using Fuzzing::expect;

void expectSameAsRead(const JsonReading& reading, const Document& document) {
    expect(reading.mayBeObject(), "what is decoded is one JSON object");
    expectText(reading, "schemaIdentifier", document.schemaIdentifier);
    expectText(reading, "status", document.status);
    expectText(reading, "selectedSnapshotCode", document.selectedSnapshotCode);
    expectNumber(reading, "totalItemCount", document.totalItemCount);
    expectNumber(reading, "recoveredItemCount", document.recoveredItemCount);
    expectNumber(reading, "totalResourceCount", document.totalResourceCount);
    expectNumber(reading, "recoveredResourceCount", document.recoveredResourceCount);
    expectNumber(reading, "failedResourceCount", document.failedResourceCount);
}

bool isWhole(const JsonReading& reading) {
    const JsonShape document = {
        .texts = {"schemaIdentifier", "status", "selectedSnapshotCode"},
        .numbers = {"totalItemCount", "recoveredItemCount", "totalResourceCount", "recoveredResourceCount",
                    "failedResourceCount"},
        .unsignedNumbers = {},
        .truths = {},
    };
    return reading.isPlain() && document.fits(reading.object(), reading, 1);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view json = Fuzzing::text(data, size);
    const std::optional<Document> decoded = DocumentChecks::decoded<Document>(json, isWhole);
    if (!decoded) {
        return 0;
    }
    const Document& document = *decoded;
    expectSameAsRead(JsonReading(json), document);
    expect(document.hasExpectedIdentifiers() == (document.schemaIdentifier == "com.ambrel.recovery.cli-export.v1"),
           "the identifier is compared exactly");
    const auto languages = AmbrelInterfaceLanguage::selectableLanguages();
    const QString shown =
        AmbrelStrings::formattedNumber(document.recoveredItemCount, languages[size % languages.size()].locale());
    expect(!shown.trimmed().isEmpty() && shown.isValidUtf16(), "the shown count is a text");
    return 0;
}
