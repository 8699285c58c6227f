#include "AmbrelRecoveryApp/FilePanels/FolderContents.h"

#include "AmbrelRecoveryApp/Model/RecoveryChosenPath.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <cerrno>
#include <cstddef>
#include <fstream>
#include <optional>

#include <dirent.h>
#include <dlfcn.h>
#include <sys/stat.h>

namespace {

using Kind = FolderContents::Item::Kind;

/// How many more items this thread reads from folders before an error; std::nullopt if there is none.
thread_local std::optional<int> itemsBeforeError;

/// What the system's function of this name returns, or an error.
dirent* nextEntry(const char* function, DIR* folder) {
    dirent* const entry = reinterpret_cast<dirent* (*)(DIR*)>(dlsym(RTLD_NEXT, function))(folder);
    const bool isItem = entry != nullptr && entry->d_name[0] != '.';
    if (isItem && itemsBeforeError && (*itemsBeforeError)-- == 0) {
        errno = EIO;
        return nullptr;
    }
    return entry;
}

class FolderContentsTest : public testing::Test {
protected:
    // The toolkit cannot remove files whose names are no text.
    ~FolderContentsTest() override { std::filesystem::remove_all(folder()); }

    std::filesystem::path folder() const { return directory_.path().toStdString(); }

    std::optional<FolderContents> read(const char* language = "en") const {
        return FolderContents::read(folder(), icu::Locale(language), stop_.get_token());
    }

    std::vector<std::string> names(const char* language = "en") const {
        std::vector<std::string> names;
        for (const FolderContents::Item& item : read(language).value_or(FolderContents()).items) {
            names.push_back(item.name);
        }
        return names;
    }

    void makeFiles(const std::vector<std::string>& names) const {
        for (const std::string& name : names) {
            std::ofstream(folder() / name) << "four";
        }
    }

    std::stop_source stop_;

private:
    QTemporaryDir directory_;
};

} // namespace

// Named by their labels, as the system's header declares functions of these names with attributes of their own.
extern "C" {

dirent* breakingReaddir(DIR* folder) __asm__("readdir");
dirent* breakingReaddir(DIR* folder) {
    return nextEntry("readdir", folder);
}

dirent* breakingReaddir64(DIR* folder) __asm__("readdir64");
dirent* breakingReaddir64(DIR* folder) {
    return nextEntry("readdir64", folder);
}

} // extern "C"

TEST_F(FolderContentsTest, tellsFoldersPackagesAndFilesApart) {
    makeFiles({"file.ambrel"});
    std::filesystem::create_directory(folder() / "folder");
    std::filesystem::create_directory(folder() / "package.Ambrel");
    std::filesystem::create_directory_symlink("folder", folder() / "link");
    std::filesystem::create_symlink("nowhere", folder() / "dangling");
    ASSERT_EQ(mkfifo((folder() / "pipe").c_str(), 0600), 0);
    const auto contents = read();
    ASSERT_TRUE(contents);
    EXPECT_TRUE(contents->isWritable);
    ASSERT_EQ(names(),
              (std::vector<std::string>{"dangling", "file.ambrel", "folder", "link", "package.Ambrel", "pipe"}));
    const std::vector<Kind> kinds{Kind::file, Kind::file, Kind::folder, Kind::folder, Kind::package, Kind::file};
    for (std::size_t index = 0; index < kinds.size(); ++index) {
        EXPECT_EQ(contents->items[index].kind, kinds[index]) << index;
    }
    EXPECT_EQ(contents->items[1].size, 4);
    EXPECT_FALSE(contents->items[0].modified);
    EXPECT_TRUE(contents->items[1].modified);
}

TEST_F(FolderContentsTest, sortsByTheRulesOfTheLanguageAndNumbersByValue) {
    makeFiles({"Zebra", "apple", "Äpfel", "Backup 10", "Backup 9"});
    EXPECT_EQ(names("de"), (std::vector<std::string>{"Äpfel", "apple", "Backup 9", "Backup 10", "Zebra"}));
    EXPECT_EQ(names("sv").back(), "Äpfel");
}

TEST_F(FolderContentsTest, keepsNamesOfAnyBytes) {
    makeFiles({"a\xFF\n", "a\xFE\n"});
    EXPECT_EQ(names().size(), 2U);
    EXPECT_NE(names()[0], names()[1]);
    EXPECT_TRUE(std::filesystem::exists(folder() / names()[0]));
}

TEST_F(FolderContentsTest, holdWhatWasReadBeforeAnError) {
    makeFiles({"one", "two", "three"});
    itemsBeforeError = 2;
    const auto contents = read();
    itemsBeforeError.reset();
    ASSERT_TRUE(contents);
    EXPECT_EQ(contents->items.size(), 2U);
    EXPECT_EQ(names().size(), 3U);
}

TEST_F(FolderContentsTest, isNoneWhereThereIsNoFolderAndWhereItIsStopped) {
    makeFiles({"file"});
    const icu::Locale locale("en");
    EXPECT_FALSE(FolderContents::read(folder() / "gone", locale, stop_.get_token()));
    EXPECT_FALSE(FolderContents::read(folder() / "file", locale, stop_.get_token()));
    stop_.request_stop();
    EXPECT_FALSE(read());
}

TEST_F(FolderContentsTest, isAbsentInAPackageWhicheverPathLeadsThere) {
    std::filesystem::create_directories(folder() / "x.Ambrel" / "inside");
    std::filesystem::create_directory(folder() / "other");
    std::filesystem::create_directory_symlink("x.Ambrel", folder() / "link");
    std::filesystem::create_directory_symlink("x.Ambrel/inside", folder() / "deep link");
    std::filesystem::create_directory_symlink("other", folder() / "named.ambrel");
    const icu::Locale locale("en");
    for (const char* name : {"x.Ambrel", "x.Ambrel/inside", "link", "link/inside", "deep link", "named.ambrel"}) {
        EXPECT_FALSE(FolderContents::read(folder() / name, locale, stop_.get_token())) << name;
    }
    EXPECT_TRUE(FolderContents::read(folder() / "other", locale, stop_.get_token()));
}

TEST_F(FolderContentsTest, knowsWhatWouldLieInAPackage) {
    std::filesystem::create_directory(folder() / "x.ambrel");
    std::filesystem::create_directory_symlink("x.ambrel", folder() / "link");
    EXPECT_TRUE(FolderContents::isWithinPackage(folder() / "x.ambrel" / "new" / "newer"));
    EXPECT_TRUE(FolderContents::isWithinPackage(folder() / "link" / "new" / "newer"));
    EXPECT_TRUE(FolderContents::isWithinPackage(folder() / "new.ambrel"));
    EXPECT_FALSE(FolderContents::isWithinPackage(folder() / "new" / "newer"));
    EXPECT_FALSE(FolderContents::isWithinPackage("/"));
}

TEST(FolderContentsNameTest, recognizesPackagesByNameInAnyLetterCase) {
    EXPECT_TRUE(RecoveryChosenPath::isPackageName("a.ambrel"));
    EXPECT_TRUE(RecoveryChosenPath::isPackageName("/b/a.b.AMBREL"));
    EXPECT_FALSE(RecoveryChosenPath::isPackageName(".ambrel"));
    EXPECT_FALSE(RecoveryChosenPath::isPackageName("ambrel"));
    EXPECT_FALSE(RecoveryChosenPath::isPackageName("a.ambrels"));
}
