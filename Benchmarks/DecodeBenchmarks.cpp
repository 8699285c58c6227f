// Decoding the engine's inspection document, beside what parsers need to read the same text without decoding it. One
// parser is kept and has its memory from the turn before.

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryInspectionDocument.h"
#include "PeakMemory.h"
#include "SampleDocument.h"

#include <QJsonDocument>
#include <benchmark/benchmark.h>
#include <nlohmann/json.hpp>
#include <simdjson.h>

#include <map>
#include <string>
#include <string_view>

#include <malloc.h>
#include <rapidjson/document.h>

namespace {

std::string_view document(int snapshots) {
    static std::map<int, std::string> documents;
    std::string& text = documents[snapshots];
    if (text.empty()) {
        text = SampleDocument::inspection(snapshots);
    }
    return text;
}

bool decode(std::string_view text) {
    return !AmbrelRecoveryInspectionDocument::decode(text).snapshots.empty();
}

bool parseWith(simdjson::dom::parser& parser, std::string_view text) {
    return parser.parse(text.data(), text.size()).error() == simdjson::SUCCESS;
}

bool parseKept(std::string_view text) {
    static simdjson::dom::parser parser;
    return parseWith(parser, text);
}

bool parseFresh(std::string_view text) {
    simdjson::dom::parser parser;
    return parseWith(parser, text);
}

bool parseQJson(std::string_view text) {
    const auto bytes = QByteArray::fromRawData(text.data(), static_cast<qsizetype>(text.size()));
    return QJsonDocument::fromJson(bytes).isObject();
}

bool parseRapidJson(std::string_view text) {
    rapidjson::Document parsed;
    return parsed.Parse(text.data(), text.size()).IsObject();
}

bool parseNlohmann(std::string_view text) {
    return nlohmann::json::parse(text).is_object();
}

void run(benchmark::State& state, bool (*read)(std::string_view)) {
    const std::string_view text = document(static_cast<int>(state.range(0)));
    // What another alternative has freed would otherwise be used here.
    ::malloc_trim(0);
    for (auto _ : state) {
        if (!read(text)) {
            state.SkipWithError("the document was not read");
        }
    }
    state.counters["text"] = static_cast<double>(text.size());
}

/// One reading, to count the memory. A parser that is kept would need none.
void memory(benchmark::State& state, bool (*read)(std::string_view)) {
    const std::string_view text = document(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        const PeakMemory memory;
        read(text);
        state.counters["memory"] = static_cast<double>(memory.growth());
    }
}

void add(const char* name, bool (*read)(std::string_view)) {
    benchmark::RegisterBenchmark(("time/" + std::string(name)).c_str(), run, read)
        ->RangeMultiplier(10)
        ->Range(10, 1'000'000)
        ->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark(("memory/" + std::string(name)).c_str(), memory, read)
        ->RangeMultiplier(10)
        ->Range(10'000, 1'000'000)
        ->Iterations(1);
}

} // namespace

int main(int argumentCount, char** arguments) {
    add("product", decode);
    add("kept", parseKept);
    add("fresh", parseFresh);
    add("RapidJSON", parseRapidJson);
    add("QJsonDocument", parseQJson);
    add("nlohmann", parseNlohmann);
    benchmark::Initialize(&argumentCount, arguments);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
