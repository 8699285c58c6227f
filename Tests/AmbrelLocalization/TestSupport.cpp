#include "TestSupport.h"

#include "AmbrelLocalization/AmbrelInterfaceLanguage.h"
#include "AmbrelLocalization/FileStamp.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <thread>

#include <unistd.h>

namespace {

constexpr uid_t nobody = 65534;

} // namespace

void PrintTo(const QString& text, std::ostream* stream) {
    *stream << '"' << text.toStdString() << '"';
}

void PrintTo(AmbrelInterfaceLanguage language, std::ostream* stream) {
    *stream << language.id().toStdString();
}

void ScopedLocaleVariables::set(const char* name, const char* value) {
    ::setenv(name, value, 1);
}

ScopedOrdinaryUser::ScopedOrdinaryUser() : isChanged_(::geteuid() == 0 && ::seteuid(nobody) == 0) {}

ScopedOrdinaryUser::~ScopedOrdinaryUser() {
    if (isChanged_) {
        EXPECT_EQ(::seteuid(0), 0);
    }
}

std::filesystem::path writeInPlace(const std::filesystem::path& path, std::string_view bytes) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream stream(path, std::ios::binary | std::ios::trunc);
    stream << bytes;
    stream.close();
    EXPECT_TRUE(stream.good()) << path;
    return path;
}

void waitUntilSettled(const std::filesystem::path& path) {
    const std::optional<FileStamp> stamp = FileStamp::ofFile(path);
    ASSERT_TRUE(stamp) << path;
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    while (!stamp->isSettled()) {
        ASSERT_LT(std::chrono::steady_clock::now(), deadline) << path;
        std::this_thread::yield();
    }
}

std::shared_ptr<AmbrelUserDefaults> emptyStandardUserDefaults() {
    std::shared_ptr<AmbrelUserDefaults> defaults = AmbrelUserDefaults::standard();
    std::filesystem::remove_all(defaults->path());
    return defaults;
}

int main(int argumentCount, char** arguments) {
    ::testing::InitGoogleTest(&argumentCount, arguments);
    // The standard user defaults of this program, and of those it starts, are its own and not the user's.
    const TemporaryDirectory configuration;
    const ScopedEnvironment variable("XDG_CONFIG_HOME", configuration.path());
    return RUN_ALL_TESTS();
}
