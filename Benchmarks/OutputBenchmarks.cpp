// The output of an engine, until it is in the memory of the application.

#include "AmbrelPlatform/UniqueDescriptor.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessRunner.h"
#include "BareProcess.h"
#include "PeakMemory.h"

#include <QProcess>
#include <benchmark/benchmark.h>

#include <cstdint>
#include <filesystem>
#include <string>

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr const char* engine = "/usr/bin/head";

std::vector<std::string> argumentsFor(std::int64_t bytes) {
    return {"-c", std::to_string(bytes), "/dev/zero"};
}

/// Each returns how many bytes have arrived.
std::int64_t readProduct(std::int64_t bytes) {
    AmbrelRecoveryProcessRunner runner(engine);
    const auto result = runner.run(argumentsFor(bytes), std::nullopt, AmbrelRecoveryProcessRunner::defaultTimeout);
    return std::ssize(result.standardOutput);
}

std::int64_t readQProcess(std::int64_t bytes) {
    QProcess process;
    QStringList arguments;
    for (const std::string& argument : argumentsFor(bytes)) {
        arguments << QString::fromStdString(argument);
    }
    process.start(QString::fromLatin1(engine), arguments);
    process.waitForFinished(-1);
    return process.readAllStandardOutput().size();
}

/// Into a file that nobody reads: what writing alone takes.
std::int64_t writeFile(std::int64_t bytes) {
    std::string path = std::filesystem::temp_directory_path() / "ambrel-benchmark.XXXXXX";
    const UniqueDescriptor file(::mkstemp(path.data()));
    ::unlink(path.c_str());
    std::vector<std::string> command = argumentsFor(bytes);
    command.insert(command.begin(), engine);
    BareProcess::wait(BareProcess::start(command, file.get()));
    return ::lseek(file.get(), 0, SEEK_END);
}

void run(benchmark::State& state, std::int64_t (*read)(std::int64_t)) {
    for (auto _ : state) {
        const PeakMemory memory;
        if (read(state.range(0)) != state.range(0)) {
            state.SkipWithError("the output is not complete");
        }
        state.counters["memory"] = static_cast<double>(memory.growth());
    }
}

void add(const char* name, std::int64_t (*read)(std::int64_t)) {
    benchmark::RegisterBenchmark(name, run, read)
        ->RangeMultiplier(32)
        ->Range(1 << 10, 1 << 30)
        ->Unit(benchmark::kMicrosecond)
        ->UseRealTime();
}

} // namespace

int main(int argumentCount, char** arguments) {
    add("product", readProduct);
    add("QProcess", readQProcess);
    add("file", writeFile);
    benchmark::Initialize(&argumentCount, arguments);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
