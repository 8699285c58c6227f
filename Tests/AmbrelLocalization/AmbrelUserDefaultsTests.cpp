#include "AmbrelLocalization/AmbrelUserDefaults.h"

#include "TestSupport.h"

#include <QSettings>
#include <QSize>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>

#include <sys/stat.h>

namespace {

const QString key = QStringLiteral("ambrel.interface-language.v1");

class AmbrelUserDefaultsTest : public testing::Test {
protected:
    std::optional<QString> readFrom(std::string_view bytes) {
        writeInPlace(folder_ / "Recovery.conf", bytes);
        return defaults_.string(key);
    }

    TemporaryDirectory folder_;
    AmbrelUserDefaults defaults_{folder_.path() / "Recovery.conf"};
};

TEST_F(AmbrelUserDefaultsTest, areEmptyWithoutAFile) {
    EXPECT_EQ(defaults_.string(key), std::nullopt);
}

TEST_F(AmbrelUserDefaultsTest, makeTheFileAndItsFolders) {
    AmbrelUserDefaults defaults(folder_.path() / "new" / "folder" / "Recovery.conf");
    EXPECT_TRUE(defaults.setString(key, QStringLiteral("de")));
    EXPECT_EQ(defaults.string(key), QStringLiteral("de"));
}

TEST_F(AmbrelUserDefaultsTest, writeAPlainLineInTheSectionGeneral) {
    EXPECT_TRUE(defaults_.setString(key, QStringLiteral("pt-BR")));
    EXPECT_EQ(TestFiles::read(defaults_.path()), "[General]\nambrel.interface-language.v1=pt-BR\n");
}

TEST_F(AmbrelUserDefaultsTest, shareTheFileWithQtsSettings) {
    QSettings settings(QString::fromStdString(defaults_.path()), QSettings::IniFormat);
    settings.setValue(key, QStringLiteral("ja"));
    settings.sync();
    EXPECT_EQ(defaults_.string(key), QStringLiteral("ja"));

    defaults_.setString(key, QStringLiteral("ko"));
    settings.sync();
    EXPECT_EQ(settings.value(key).toString(), QStringLiteral("ko"));
}

TEST_F(AmbrelUserDefaultsTest, keepTheOtherKeys) {
    writeInPlace(folder_ / "Recovery.conf",
                 "[General]\nfirst=1\nambrel.interface-language.v1=de\n\n[Window]\nsize=@Size(4 5)\n");
    EXPECT_TRUE(defaults_.setString(key, QStringLiteral("fr")));
    EXPECT_EQ(defaults_.string(key), QStringLiteral("fr"));
    EXPECT_EQ(defaults_.string(QStringLiteral("first")), QStringLiteral("1"));
    const QSettings settings(QString::fromStdString(defaults_.path()), QSettings::IniFormat);
    EXPECT_EQ(settings.value(QStringLiteral("Window/size")).toSize(), QSize(4, 5));
}

TEST_F(AmbrelUserDefaultsTest, keepAnyText) {
    const QString texts[] = {QString(),
                             QStringLiteral(" leading and trailing "),
                             QStringLiteral("a, b; c = \"d\" \\ e\n\tf"),
                             QStringLiteral("@Invalid()"),
                             QStringLiteral("@@"),
                             QStringLiteral("Español 日本語 😀")};
    for (const QString& text : texts) {
        EXPECT_TRUE(defaults_.setString(key, text));
        EXPECT_EQ(defaults_.string(key), text);
    }
}

TEST_F(AmbrelUserDefaultsTest, treatValuesThatAreNotTextAsAbsent) {
    EXPECT_EQ(readFrom("[General]\nambrel.interface-language.v1=de, fr\n"), std::nullopt);
    EXPECT_EQ(readFrom("[General]\nambrel.interface-language.v1=@ByteArray(de)\n"), std::nullopt);
    EXPECT_EQ(readFrom("[General]\nambrel.interface-language.v1=@Invalid()\n"), std::nullopt);
    EXPECT_EQ(readFrom("[General]\nambrel.interface-language.v1=@Variant(\\0\\0\\0\\x2\\0\\0\\0\\x5)\n"), std::nullopt);
    EXPECT_EQ(readFrom("[General]\nambrel.interface-language.v1=@Size(1 2)\n"), std::nullopt);
}

TEST_F(AmbrelUserDefaultsTest, readTheIntactPartOfABrokenFile) {
    EXPECT_EQ(readFrom("[General\nambrel.interface-language.v1=de\n"), QStringLiteral("de"));
    EXPECT_EQ(readFrom("[General]\nambrel.interface-language.v1\n"), std::nullopt);
    EXPECT_EQ(readFrom("[General]\n\"ambrel.interface-language.v1=de\n"), std::nullopt);
    EXPECT_EQ(readFrom(std::string_view("\0\xFF\xFE\x80[\n=\n]\\", 9)), std::nullopt);
    EXPECT_EQ(readFrom("[General]\nnonsense\nambrel.interface-language.v1=de\n"), QStringLiteral("de"));
}

TEST_F(AmbrelUserDefaultsTest, repairABrokenFileByWritingIt) {
    writeInPlace(folder_ / "Recovery.conf", "[General\nnonsense\n");
    EXPECT_TRUE(defaults_.setString(key, QStringLiteral("it")));
    EXPECT_EQ(defaults_.string(key), QStringLiteral("it"));
}

TEST_F(AmbrelUserDefaultsTest, treatAFileAsAbsentUntilItMayBeRead) {
    writeInPlace(folder_ / "Recovery.conf", "[General]\nambrel.interface-language.v1=de\n");
    ASSERT_EQ(::chmod(folder_.path().c_str(), 0755), 0);
    ASSERT_EQ(::chmod(defaults_.path().c_str(), 0), 0);
    {
        const ScopedOrdinaryUser user;
        EXPECT_EQ(defaults_.string(key), std::nullopt);
        EXPECT_FALSE(defaults_.setString(key, QStringLiteral("fr")));
    }
    ASSERT_EQ(::chmod(defaults_.path().c_str(), 0644), 0);
    EXPECT_EQ(defaults_.string(key), QStringLiteral("de"));
}

TEST_F(AmbrelUserDefaultsTest, treatAFolderOrAPipeInPlaceOfTheFileAsAbsent) {
    std::filesystem::create_directory(defaults_.path());
    EXPECT_EQ(defaults_.string(key), std::nullopt);
    EXPECT_FALSE(defaults_.setString(key, QStringLiteral("de")));
    EXPECT_TRUE(std::filesystem::is_directory(defaults_.path()));

    AmbrelUserDefaults onPipe(folder_.path() / "pipe");
    ASSERT_EQ(::mkfifo(onPipe.path().c_str(), 0600), 0);
    EXPECT_EQ(onPipe.string(key), std::nullopt) << "and without waiting for somebody to write";
}

TEST_F(AmbrelUserDefaultsTest, treatAnOversizedFileAsAbsent) {
    EXPECT_EQ(readFrom("[General]\nambrel.interface-language.v1=de\n" + std::string(2 * 1024 * 1024, ';')),
              std::nullopt);
}

TEST_F(AmbrelUserDefaultsTest, followALinkInPlaceOfTheFile) {
    writeInPlace(folder_ / "elsewhere.conf", "[General]\nambrel.interface-language.v1=tr\n");
    std::filesystem::create_symlink("elsewhere.conf", defaults_.path());
    EXPECT_EQ(defaults_.string(key), QStringLiteral("tr"));
}

TEST_F(AmbrelUserDefaultsTest, noticeAChangeThatKeepsTheLength) {
    EXPECT_EQ(readFrom("[General]\nambrel.interface-language.v1=de\n"), QStringLiteral("de"));
    writeInPlace(defaults_.path(), "[General]\nambrel.interface-language.v1=fr\n");
    const auto written = std::filesystem::last_write_time(defaults_.path());
    std::filesystem::last_write_time(defaults_.path(), written + std::chrono::milliseconds(10));
    EXPECT_EQ(defaults_.string(key), QStringLiteral("fr"));
}

TEST_F(AmbrelUserDefaultsTest, noticeEveryChangeOfLengthInQuickSuccession) {
    for (const char* const language : {"de", "pt-BR", "it", "zh-Hans"}) {
        EXPECT_EQ(readFrom("[General]\nambrel.interface-language.v1=" + std::string(language) + "\n"), language);
    }
}

TEST_F(AmbrelUserDefaultsTest, noticeTheFileDisappearAndReappear) {
    EXPECT_EQ(readFrom("[General]\nambrel.interface-language.v1=de\n"), QStringLiteral("de"));
    std::filesystem::remove(defaults_.path());
    EXPECT_EQ(defaults_.string(key), std::nullopt);
    EXPECT_EQ(readFrom("[General]\nambrel.interface-language.v1=pt-BR\n"), QStringLiteral("pt-BR"));
}

TEST(StandardUserDefaultsTest, areInTheUsersConfigurationFolder) {
    // The program's main function has set the variable before anything asked for the defaults.
    EXPECT_EQ(AmbrelUserDefaults::standard()->path(),
              std::filesystem::path(std::getenv("XDG_CONFIG_HOME")) / "Ambrel" / "Recovery.conf");
    EXPECT_EQ(AmbrelUserDefaults::standard(), AmbrelUserDefaults::standard());
}

} // namespace
