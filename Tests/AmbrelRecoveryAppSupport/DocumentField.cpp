#include "DocumentField.h"

#include <stdexcept>

namespace {

using Kind = DocumentField::Kind;

/// Wrong for whatever is wanted, since they are no JSON values at all.
const std::vector<std::string> malformedValues = {
    "",
    "nul",
    "tru",
    "True",
    "NaN",
    "Infinity",
    "-",
    "+1",
    "01",
    "-01",
    ".5",
    "1.",
    "1e",
    "0x10",
    "1_000",
    "1 2",
    "'text'",
    "\"unterminated",
    "\"line\nfeed\"",
    "\"escape \\x\"",
    "\"escape \\u12\"",
    "\"lone \\ud800\"",
    "\"lone \\ud800x\"",
    "\"lone \\ud800\\u0041\"",
    "\"lone \\udc00\"",
    "\"reversed \\udc00\\ud800\"",
    "\"byte \xFF\"",
    "\"surrogate \xED\xA0\x80\"",
    "\"overlong \xC0\xAF\"",
    "\"too high \xF4\x90\x80\x80\"",
    "\"cut off \xE2\x82\"",
    "[",
    "]",
    "[1,]",
    "{\"a\":}",
    "{\"a\" 1}",
    "{a:1}",
    "{\"a\":1,}",
    "// comment",
};

std::vector<std::string> joined(std::vector<std::string> first, const std::vector<std::string>& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

/// Numbers that fit no integer of 64 bits, and those with a fraction.
std::vector<std::string> unsuitableNumbers() {
    return {"18446744073709551616",
            "-9223372036854775809",
            "99999999999999999999999",
            std::string(400, '9'),
            "-" + std::string(400, '9'),
            "1" + std::string(400, '0') + ".0",
            "18446744073709551615.1",
            "-9223372036854775808.5",
            "18446744073709551616.0",
            "1e20",
            "-1e19",
            "1.5",
            "-0.5",
            "15e-1",
            "1.00000000000000000000000000000001",
            "4503599627370497.5",
            "1e-99999999999999999999",
            "0." + std::string(400, '3'),
            "1e400",
            "-1e400",
            "1e-400"};
}

} // namespace

std::vector<DocumentField> DocumentField::inspection() {
    return {
        {"document", "schemaIdentifier", Kind::text},
        {"document", "formatIdentifier", Kind::text},
        {"document", "formatVersion", Kind::unsignedInteger},
        {"document", "unlockedFactor", Kind::text},
        {"document", "branchDisposition", Kind::text},
        {"document", "canonicalTipSelectionCode", Kind::optionalText},
        {"document", "authenticatedCommitCount", Kind::signedInteger},
        {"document", "authenticatedHeadCount", Kind::signedInteger},
        {"document", "maximumWriterEpoch", Kind::unsignedInteger},
        {"document", "preservedBranches", Kind::objects},
        {"document", "snapshots", Kind::objects},
        {"branch", "tipSelectionCode", Kind::text},
        {"branch", "snapshotSelectionCodes", Kind::texts},
        {"snapshot", "selectionCode", Kind::text},
        {"snapshot", "createdAtUTCMilliseconds", Kind::signedInteger},
        {"snapshot", "writerEpoch", Kind::unsignedInteger},
        {"snapshot", "generation", Kind::unsignedInteger},
        {"snapshot", "retainedTip", Kind::boolean},
        {"snapshot", "counts", Kind::object},
        {"snapshot", "logicalPlaintextByteCount", Kind::unsignedInteger},
        {"snapshot", "encryptedPayloadByteCount", Kind::unsignedInteger},
        {"snapshot", "payloadFileEvidence", Kind::object},
        {"counts", "items", Kind::unsignedInteger},
        {"counts", "resources", Kind::unsignedInteger},
        {"counts", "folders", Kind::unsignedInteger},
        {"counts", "albums", Kind::unsignedInteger},
        {"counts", "memberships", Kind::unsignedInteger},
        {"counts", "tombstones", Kind::unsignedInteger},
        {"evidence", "complete", Kind::boolean},
        {"evidence", "requiredFileCount", Kind::signedInteger},
        {"evidence", "matchingFileCount", Kind::signedInteger},
        {"evidence", "missingFileCount", Kind::signedInteger},
        {"evidence", "mismatchedFileCount", Kind::signedInteger},
        {"evidence", "unreadableFileCount", Kind::signedInteger},
    };
}

std::vector<DocumentField> DocumentField::exported() {
    return {
        {"document", "schemaIdentifier", Kind::text},
        {"document", "status", Kind::text},
        {"document", "selectedSnapshotCode", Kind::text},
        {"document", "totalItemCount", Kind::signedInteger},
        {"document", "recoveredItemCount", Kind::signedInteger},
        {"document", "totalResourceCount", Kind::signedInteger},
        {"document", "recoveredResourceCount", Kind::signedInteger},
        {"document", "failedResourceCount", Kind::signedInteger},
    };
}

std::vector<std::string> DocumentField::refusedValues() const {
    switch (kind) {
    case Kind::text:
        return joined({"null", "true", "1", "1.5", "[]", "{}", "[\"text\"]", "{\"text\":\"text\"}"}, malformedValues);
    case Kind::optionalText:
        return joined({"false", "0", "[]", "{}", "[null]"}, malformedValues);
    case Kind::boolean:
        return joined({"null", "0", "1", "\"true\"", "\"\"", "[]", "{}", "[true]"}, malformedValues);
    case Kind::signedInteger:
        return joined(
            joined({"null", "true", "\"1\"", "\"\"", "[]", "{}", "[1]", "9223372036854775808", "18446744073709551615"},
                   unsuitableNumbers()),
            malformedValues);
    case Kind::unsignedInteger:
        return joined(joined({"null", "true", "\"1\"", "\"\"", "[]", "{}", "[1]", "-1", "-9223372036854775808"},
                             unsuitableNumbers()),
                      malformedValues);
    case Kind::object:
        return joined({"null", "true", "1", "\"{}\"", "[]", "{}", "[{}]"}, malformedValues);
    case Kind::objects:
        return joined({"null", "true", "1", "\"[]\"", "{}", "[null]", "[1]", "[\"text\"]", "[[]]", "[{}]",
                       "[{\"selectionCode\":\"code\",\"tipSelectionCode\":\"code\"}]"},
                      malformedValues);
    case Kind::texts:
        return joined(
            {"null", "true", "1", "\"text\"", "{}", "[null]", "[1]", "[[]]", "[{}]", "[\"text\",null]", "[\"text\",1]"},
            malformedValues);
    }
    throw std::logic_error("a kind of value that has no table");
}

std::vector<std::string> DocumentField::acceptedValues() const {
    switch (kind) {
    case Kind::text:
        return {"\"\"", "\"text\"", "\"null\"", "\"\\u0000\"", "\"\\ud83d\\udcbe\"", "\"\xF0\x9F\x92\xBE\"", "\"\\/\""};
    case Kind::optionalText:
        return {"null", "\"\"", "\"text\""};
    case Kind::boolean:
        return {"true", "false"};
    case Kind::signedInteger:
        return {"0", "-0", "1", "-1", "9223372036854775807", "-9223372036854775808", "-5.0", "1e2"};
    case Kind::unsignedInteger:
        return {"0", "1", "9223372036854775807", "9223372036854775808", "18446744073709551615", "5.0", "1e2"};
    case Kind::object:
        return {};
    case Kind::objects:
        return {"[]"};
    case Kind::texts:
        return {"[]", "[\"\"]", "[\"code\",\"code\"]"};
    }
    throw std::logic_error("a kind of value that has no table");
}
