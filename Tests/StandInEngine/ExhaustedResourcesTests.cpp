#include "Format/KeyFile.h"
#include "StandInEngineTest.h"
#include "Support/TestFiles.h"

#include <sys/resource.h>

namespace {

class ExhaustedResourcesTest : public StandInEngineTest {};

} // namespace

TEST_F(ExhaustedResourcesTest, aDerivationThatNeedsTooMuchMemoryEndsTheRun) {
    TestPackage package(folder_ / "P.ambrel");
    const std::string header = TestFiles::read(package.path() / "header.txt");
    const std::string keys = TestFiles::read(package.path() / "keys");
    KeyFile keyFile = KeyFile::decode(bytesOf(keys), bytesOf(header));
    keyFile.slots[0].cost = {1, 1'048'576};
    const Bytes encoded = keyFile.encode(bytesOf(header));
    TestFiles::write(package.path() / "keys", std::string(encoded.begin(), encoded.end()));
    guard(package.path());
    const ProgramResult result = Program::run(STAND_IN_ENGINE, inspectArguments(package.path(), passphrase()),
                                              {.input = "correct horse\n", .inChild = [] {
                                                   const rlimit limit = {200 << 20, 200 << 20};
                                                   ::setrlimit(RLIMIT_AS, &limit);
                                               }});
    expectFailure(result, 1, "There is not enough memory.");
}

TEST_F(ExhaustedResourcesTest, thePackageIsUnavailableWithoutAFreeDescriptor) {
    TestPackage package(folder_ / "P.ambrel");
    const ProgramResult result = Program::run(STAND_IN_ENGINE, inspectArguments(package.path(), passphrase()),
                                              {.input = "correct horse\n", .inChild = [] {
                                                   const rlimit limit = {4, 4};
                                                   ::setrlimit(RLIMIT_NOFILE, &limit);
                                               }});
    expectFailure(result, 5, "The backup package is unavailable.");
}
