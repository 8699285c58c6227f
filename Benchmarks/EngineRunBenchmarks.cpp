// One run of an engine that does nothing, with a credential, beside other ways to run a program.
//
//     EngineRunBenchmarks [--parent MEBIBYTES] [option of Google Benchmark...]
//
// This process holds that much memory: with some of the ways, a start takes longer the more there is.

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessRunner.h"
#include "BareProcess.h"

#include <QProcess>
#include <benchmark/benchmark.h>

#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <boost/process.hpp>

namespace {

constexpr const char* engine = "/bin/true";
constexpr std::string_view credential = "correct horse battery staple";

bool runProduct() {
    static AmbrelRecoveryProcessRunner runner(engine);
    return runner.run({}, std::as_bytes(std::span(credential)), AmbrelRecoveryProcessRunner::defaultTimeout).exitCode ==
           0;
}

bool runBare() {
    return BareProcess::wait(BareProcess::start({engine})) == 0;
}

bool runQProcess() {
    QProcess process;
    process.start(QString::fromLatin1(engine), QStringList());
    process.write(credential.data(), static_cast<qint64>(credential.size()));
    process.closeWriteChannel();
    return process.waitForFinished() && process.exitCode() == 0 && process.readAllStandardOutput().isEmpty();
}

bool runBoost() {
    namespace bp = boost::process;
    bp::opstream input;
    bp::ipstream output;
    bp::child process(engine, bp::std_in<input, bp::std_out> output, bp::std_err > bp::null);
    input << credential << std::endl;
    input.pipe().close();
    process.wait();
    return process.exit_code() == 0;
}

void run(benchmark::State& state, bool (*way)()) {
    for (auto _ : state) {
        if (!way()) {
            state.SkipWithError("the engine did not run");
        }
    }
}

void add(const char* name, bool (*way)()) {
    benchmark::RegisterBenchmark(name, run, way)->Unit(benchmark::kMicrosecond)->UseRealTime();
}

} // namespace

int main(int argumentCount, char** arguments) {
    std::vector<char> parent;
    if (argumentCount > 2 && std::string_view(arguments[1]) == "--parent") {
        parent.assign(std::strtoul(arguments[2], nullptr, 10) << 20, 'x');
        benchmark::DoNotOptimize(parent.data());
        arguments[2] = arguments[0];
        argumentCount -= 2;
        arguments += 2;
    }
    // The engine may have ended before the credential is written.
    static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
    add("bare", runBare);
    add("product", runProduct);
    add("QProcess", runQProcess);
    add("Boost.Process", runBoost);
    benchmark::Initialize(&argumentCount, arguments);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
