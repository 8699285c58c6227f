#include "AmbrelRecoveryApp/Screens/InterfaceFont.h"

#include "../ScreensTestSupport.h"
#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"

#include <QApplication>
#include <QGlyphRun>
#include <QLabel>
#include <QRawFont>
#include <QTextLayout>
#include <gtest/gtest.h>

namespace {

/// A Han character of which every language has its own form.
const QString boneCharacter = QStringLiteral("骨");

/// The family from which a text is really drawn.
QString familyOf(const QString& text, const QFont& font) {
    QTextLayout layout(text, font);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    const QList<QGlyphRun> runs = layout.glyphRuns();
    return runs.isEmpty() ? QString() : runs.front().rawFont().familyName();
}

QString familyIn(const char* language, const char* locale, const QString& text) {
    const ScopedLanguage scope(language, locale);
    applyInterfaceFont();
    return familyOf(text, recoveryFont(16, QFont::Normal));
}

class InterfaceFontTest : public testing::Test {
protected:
    // What the desktop's font is does not change after it was first asked for, here on an English system.
    InterfaceFontTest() {
        for (const char* const language : {"ar", "en"}) {
            const ScopedLanguage texts(language, "en_US.UTF-8");
            applyInterfaceFont();
        }
    }
    ~InterfaceFontTest() override { QApplication::setFont(before_); }

private:
    const QFont before_ = QApplication::font();
};

TEST_F(InterfaceFontTest, drawsHanCharactersInTheFormsOfTheLanguage) {
    EXPECT_EQ(familyIn("zh-Hans", "zh_CN.UTF-8", boneCharacter), QStringLiteral("Noto Sans CJK SC"));
    EXPECT_EQ(familyIn("zh-Hant", "zh_TW.UTF-8", boneCharacter), QStringLiteral("Noto Sans CJK TC"));
    EXPECT_EQ(familyIn("ja", "ja_JP.UTF-8", boneCharacter), QStringLiteral("Noto Sans CJK JP"));
    EXPECT_EQ(familyIn("ko", "ko_KR.UTF-8", boneCharacter), QStringLiteral("Noto Sans CJK KR"));
}

TEST_F(InterfaceFontTest, prefersTheFormsOfTheLanguageToThoseOfTheDesktop) {
    EXPECT_EQ(interfaceFontFamilies(QStringLiteral("Noto Sans CJK SC"), AmbrelInterfaceLanguage::japanese),
              QStringList({"Noto Sans CJK JP", "Noto Sans CJK SC"}));
    EXPECT_EQ(interfaceFontFamilies(QStringLiteral("Inter"), AmbrelInterfaceLanguage::japanese),
              QStringList({"Inter", "Noto Sans CJK JP"}));
    EXPECT_EQ(interfaceFontFamilies(QStringLiteral("Inter"), AmbrelInterfaceLanguage::polish), QStringList("Inter"));
}

TEST_F(InterfaceFontTest, drawsArabicInAMatchingSansSerif) {
    EXPECT_EQ(familyIn("ar", "ar_EG.UTF-8", QStringLiteral("اختيار")), QStringLiteral("Noto Sans Arabic"));
}

TEST_F(InterfaceFontTest, drawsLatinLettersWithTheFontOfTheDesktop) {
    const QString ofTheDesktop = familyIn("en", "en_US.UTF-8", QStringLiteral("Photos"));
    EXPECT_EQ(familyIn("ja", "ja_JP.UTF-8", QStringLiteral("Photos")), ofTheDesktop);
    EXPECT_EQ(familyIn("ar", "ar_EG.UTF-8", QStringLiteral("Photos")), ofTheDesktop);
}

TEST_F(InterfaceFontTest, restoresTheFontOfTheDesktopInOtherLanguages) {
    const QStringList families = QApplication::font().families();
    familyIn("ja", "ja_JP.UTF-8", boneCharacter);
    familyIn("de", "de_DE.UTF-8", boneCharacter);
    EXPECT_EQ(QApplication::font().families(), families);
}

TEST_F(InterfaceFontTest, widgetsFollowALaterChangeOfTheLanguage) {
    QLabel label;
    label.setFont(recoveryFont(16, QFont::DemiBold));
    label.show();
    familyIn("zh-Hans", "zh_CN.UTF-8", boneCharacter);
    QCoreApplication::processEvents();
    EXPECT_EQ(familyOf(boneCharacter, label.font()), QStringLiteral("Noto Sans CJK SC"));
    EXPECT_TRUE(label.font().families().contains(QStringLiteral("Noto Sans CJK SC")));
    EXPECT_EQ(label.font().pixelSize(), 16);
    EXPECT_EQ(label.font().weight(), QFont::DemiBold);
}

} // namespace
