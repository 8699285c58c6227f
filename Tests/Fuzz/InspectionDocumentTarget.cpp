// The engine's inspection, and the values of it that the screens show.

#include "AmbrelLocalization/AmbrelInterfaceLanguage.h"
#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryInspectionDocument.h"
#include "Fuzz/DocumentChecks.h"
#include "Fuzz/JsonShape.h"

#include <QJsonArray>

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <set>
#include <string>

namespace {

using Document = AmbrelRecoveryInspectionDocument;
using DocumentChecks::expectNumber;
using DocumentChecks::expectText;
using Fuzzing::expect;

void expectSameAsRead(const JsonReading& reading, const Document& document) {
    expect(reading.mayBeObject(), "what is decoded is one JSON object");
    expectText(reading, "schemaIdentifier", document.schemaIdentifier);
    expectText(reading, "formatIdentifier", document.formatIdentifier);
    expectText(reading, "unlockedFactor", document.unlockedFactor);
    expectText(reading, "branchDisposition", document.branchDisposition);
    expectNumber(reading, "formatVersion", document.formatVersion);
    expectNumber(reading, "authenticatedCommitCount", document.authenticatedCommitCount);
    expectNumber(reading, "authenticatedHeadCount", document.authenticatedHeadCount);
    expectNumber(reading, "maximumWriterEpoch", document.maximumWriterEpoch);
    if (const auto value = reading.value("canonicalTipSelectionCode")) {
        expect(value->isNull() == !document.canonicalTipSelectionCode, "an optional text is there unless it is null");
    }
    if (const auto value = reading.value("snapshots")) {
        expect(static_cast<std::size_t>(value->toArray().size()) == document.snapshots.size(),
               "every snapshot of the document is there");
    }
    if (const auto value = reading.value("preservedBranches")) {
        expect(static_cast<std::size_t>(value->toArray().size()) == document.preservedBranches.size(),
               "every branch of the document is there");
    }
}

bool areWholeBranches(const QJsonValue& value, const JsonReading& reading) {
    const JsonShape branch = {.texts = {"tipSelectionCode"}, .numbers = {}, .unsignedNumbers = {}, .truths = {}};
    const QJsonArray branches = value.toArray();
    const auto count = static_cast<std::size_t>(branches.size());
    const auto isText = [](const QJsonValue& code) { return code.isString(); };
    return value.isArray() && reading.countOf("snapshotSelectionCodes") == count &&
           std::ranges::all_of(branches, [&](const QJsonValue& each) {
               const QJsonValue codes = each.toObject().value(QStringLiteral("snapshotSelectionCodes"));
               const QJsonArray texts = codes.toArray();
               return branch.fits(each.toObject(), reading, count) && codes.isArray() &&
                      std::ranges::all_of(texts, isText);
           });
}

bool areWholeSnapshots(const QJsonValue& value, const JsonReading& reading) {
    const JsonShape snapshot = {
        .texts = {"selectionCode"},
        .numbers = {"createdAtUTCMilliseconds"},
        .unsignedNumbers = {"writerEpoch", "generation", "logicalPlaintextByteCount", "encryptedPayloadByteCount"},
        .truths = {"retainedTip"},
    };
    const JsonShape counts = {
        .texts = {},
        .numbers = {},
        .unsignedNumbers = {"items", "resources", "folders", "albums", "memberships", "tombstones"},
        .truths = {},
    };
    const JsonShape evidence = {
        .texts = {},
        .numbers = {"requiredFileCount", "matchingFileCount", "missingFileCount", "mismatchedFileCount",
                    "unreadableFileCount"},
        .unsignedNumbers = {},
        .truths = {"complete"},
    };
    const QJsonArray snapshots = value.toArray();
    const auto count = static_cast<std::size_t>(snapshots.size());
    return value.isArray() && std::ranges::all_of(snapshots, [&](const QJsonValue& each) {
               const QJsonObject object = each.toObject();
               return snapshot.fits(object, reading, count) &&
                      counts.fits(object.value(QStringLiteral("counts")).toObject(), reading, count) &&
                      evidence.fits(object.value(QStringLiteral("payloadFileEvidence")).toObject(), reading, count) &&
                      reading.countOf("counts") == count && reading.countOf("payloadFileEvidence") == count;
           });
}

bool isWhole(const JsonReading& reading) {
    const JsonShape document = {
        .texts = {"schemaIdentifier", "formatIdentifier", "unlockedFactor", "branchDisposition"},
        .numbers = {"authenticatedCommitCount", "authenticatedHeadCount"},
        .unsignedNumbers = {"formatVersion", "maximumWriterEpoch"},
        .truths = {},
    };
    const auto branches = reading.value("preservedBranches");
    const auto snapshots = reading.value("snapshots");
    const auto tip = reading.value("canonicalTipSelectionCode");
    const bool mayHaveTip = tip ? tip->isNull() || tip->isString() : reading.countOf("canonicalTipSelectionCode") == 0;
    return reading.isPlain() && document.fits(reading.object(), reading, 1) && mayHaveTip && branches && snapshots &&
           areWholeBranches(*branches, reading) && areWholeSnapshots(*snapshots, reading);
}

void expectRecommendation(const Document& document) {
    const auto recommended = document.recommendedSnapshotCode();
    std::vector<std::string> tips;
    for (const Document::Snapshot& snapshot : document.snapshots) {
        if (snapshot.retainedTip) {
            tips.push_back(snapshot.id());
        }
    }
    if (document.branchDisposition == "unresolved-fork" || document.branchDisposition == "no-published-head") {
        expect(!recommended, "a fork and a history without heads have no recommendation");
    } else if (tips.size() == 1) {
        expect(recommended == tips.front(), "the only retained tip is recommended");
    } else if (document.snapshots.size() == 1) {
        expect(recommended == document.snapshots.front().selectionCode, "the only snapshot is recommended");
    } else {
        expect(!recommended, "among several snapshots none is recommended");
    }
}

void expectShown(const QString& text) {
    expect(!text.trimmed().isEmpty(), "what is shown is not blank");
    expect(text.isValidUtf16(), "what is shown is text");
}

void expectShown(const Document::Snapshot& snapshot, const icu::Locale& locale) {
    using Time = std::chrono::sys_time<std::chrono::milliseconds>;
    const auto largest = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    const auto size = static_cast<std::int64_t>(std::min(snapshot.logicalPlaintextByteCount, largest));
    expectShown(
        AmbrelStrings::formattedDateTime(Time(std::chrono::milliseconds(snapshot.createdAtUTCMilliseconds)), locale));
    expectShown(AmbrelStrings::formattedNumber(snapshot.counts.items, locale));
    expectShown(AmbrelStrings::formattedNumber(snapshot.counts.resources, locale));
    expectShown(AmbrelStrings::formattedFileSize(size, locale));
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    return ::setenv("TZ", "UTC", 1);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view json = Fuzzing::text(data, size);
    const std::optional<Document> decoded = DocumentChecks::decoded<Document>(json, isWhole);
    if (!decoded) {
        return 0;
    }
    const Document& document = *decoded;
    expectSameAsRead(JsonReading(json), document);
    expectRecommendation(document);
    const auto languages = AmbrelInterfaceLanguage::selectableLanguages();
    for (std::size_t index = 0; index < std::min<std::size_t>(document.snapshots.size(), 4); ++index) {
        expectShown(document.snapshots[index], languages[(size + index) % languages.size()].locale());
    }
    return 0;
}
