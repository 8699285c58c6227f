#pragma once

#include "FolderDigest.h"
#include "Program.h"
#include "Support/TemporaryDirectory.h"
#include "TestPackage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <simdjson.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

/// A folder of its own for each test. What is guarded is compared at the end: nothing may have changed.
class StandInEngineTest : public testing::Test {
protected:
    struct Secret {
        std::string flag;
        std::string text;
    };

    void TearDown() override;

    /// Has it checked at the end of the test that a folder is as it is now.
    void guard(const std::filesystem::path& folder) { guarded_[folder] = FolderDigest::of(folder); }

    static Secret passphrase(std::string_view text = TestPackage::passphrase);
    static Secret recoveryKey(std::string_view text);

    ProgramResult inspect(const std::filesystem::path& package, const Secret& secret = passphrase()) const;
    ProgramResult exportSnapshot(const std::filesystem::path& package, const std::string& code,
                                 const Secret& secret = passphrase()) const;

    static std::vector<std::string> inspectArguments(const std::filesystem::path& package, const Secret& secret);
    std::vector<std::string> exportArguments(const std::filesystem::path& package, const std::string& code,
                                             const Secret& secret) const;

    /// The document of an inspection that must succeed; valid until the next call.
    simdjson::dom::element inspection(const std::filesystem::path& package, const Secret& secret = passphrase());
    simdjson::dom::element parse(const ProgramResult& result);
    /// The code of a snapshot, in the document's order; the last one if there is no such index.
    std::string codeOf(const std::filesystem::path& package, std::size_t index = 1'000);

    /// Expects that the run failed with that status and said that sentence, and that it wrote nothing else.
    static void expectFailure(const ProgramResult& result, int status, const std::string& sentence);
    /// Expects that the folder of the test holds nothing but what is named.
    void expectOnly(const std::vector<std::string>& names) const;

    std::filesystem::path destination() const { return folder_ / "Recovered"; }

    TemporaryDirectory folder_;

private:
    std::map<std::filesystem::path, std::map<std::string, std::string>> guarded_;
    simdjson::dom::parser parser_;
};
