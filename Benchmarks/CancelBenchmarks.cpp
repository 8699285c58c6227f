// From the request to cancel until the run has returned, with an engine that ends at once.

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessRunner.h"
#include "BareProcess.h"

#include <QProcess>
#include <benchmark/benchmark.h>

#include <chrono>
#include <csignal>
#include <thread>

#include <sys/wait.h>

namespace {

using Clock = std::chrono::steady_clock;

constexpr const char* engine = "/bin/sleep";
constexpr const char* argument = "1000";
/// Long enough for the engine to be asleep.
constexpr std::chrono::milliseconds untilAsleep(10);

double seconds(Clock::duration duration) {
    return std::chrono::duration<double>(duration).count();
}

double cancelProduct() {
    AmbrelRecoveryProcessRunner runner(engine);
    Clock::time_point returned;
    std::thread thread([&] {
        runner.run({argument}, std::nullopt, AmbrelRecoveryProcessRunner::defaultTimeout);
        returned = Clock::now();
    });
    std::this_thread::sleep_for(untilAsleep);
    const Clock::time_point start = Clock::now();
    runner.cancelCurrentOperation();
    thread.join();
    return seconds(returned - start);
}

double endEngine() {
    const pid_t process = BareProcess::start({engine, argument});
    std::this_thread::sleep_for(untilAsleep);
    const Clock::time_point start = Clock::now();
    ::kill(process, SIGTERM);
    BareProcess::wait(process);
    return seconds(Clock::now() - start);
}

double cancelQProcess() {
    QProcess process;
    process.start(QString::fromLatin1(engine), {QString::fromLatin1(argument)});
    process.waitForStarted();
    std::this_thread::sleep_for(untilAsleep);
    const Clock::time_point start = Clock::now();
    process.terminate();
    process.waitForFinished();
    return seconds(Clock::now() - start);
}

void run(benchmark::State& state, double (*cancel)()) {
    for (auto _ : state) {
        state.SetIterationTime(cancel());
    }
}

void add(const char* name, double (*cancel)()) {
    benchmark::RegisterBenchmark(name, run, cancel)->Unit(benchmark::kMicrosecond)->UseManualTime()->Iterations(5);
}

} // namespace

int main(int argumentCount, char** arguments) {
    add("bare", endEngine);
    add("product", cancelProduct);
    add("QProcess", cancelQProcess);
    benchmark::Initialize(&argumentCount, arguments);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
