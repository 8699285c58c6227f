#include "AmbrelRecoveryApp/Screens/InterfaceFont.h"

#include "AmbrelLocalization/AmbrelStrings.h"

#include <QApplication>
#include <QFont>
#include <QFontInfo>

#include <algorithm>
#include <array>

namespace {

struct Companion {
    AmbrelInterfaceLanguage language;
    QLatin1String family;
    /// Without effect on fonts with outlines. Qt keeps fonts by what was asked for, families but the first not counted:
    /// without it a font that was loaded for one language would be taken for another.
    QFont::StyleStrategy mark;
};

/// The families that are drawn to stand beside one another in many scripts.
const std::array companions{
    Companion{AmbrelInterfaceLanguage::arabic, QLatin1String("Noto Sans Arabic"), QFont::PreferDefault},
    Companion{AmbrelInterfaceLanguage::japanese, QLatin1String("Noto Sans CJK JP"), QFont::PreferDevice},
    Companion{AmbrelInterfaceLanguage::korean, QLatin1String("Noto Sans CJK KR"), QFont::PreferOutline},
    Companion{AmbrelInterfaceLanguage::simplifiedChinese, QLatin1String("Noto Sans CJK SC"), QFont::PreferMatch},
    Companion{AmbrelInterfaceLanguage::traditionalChinese, QLatin1String("Noto Sans CJK TC"), QFont::PreferQuality},
};

const Companion* companionOf(AmbrelInterfaceLanguage language) {
    const auto companion = std::ranges::find(companions, language, &Companion::language);
    return companion == companions.end() ? nullptr : &*companion;
}

} // namespace

QStringList interfaceFontFamilies(const QString& familyOfTheDesktop, AmbrelInterfaceLanguage language) {
    QStringList families = {familyOfTheDesktop};
    if (const Companion* const companion = companionOf(language)) {
        // A desktop in another of these languages may have the companion of that language for all of its texts.
        const bool isForeign =
            std::ranges::find(companions, familyOfTheDesktop, &Companion::family) != companions.end();
        families.insert(isForeign ? 0 : 1, companion->family);
    }
    return families;
}

void applyInterfaceFont() {
    static const QFont ofTheDesktop = QApplication::font();
    QFont font = ofTheDesktop;
    const AmbrelInterfaceLanguage language = AmbrelStrings::currentInterfaceLanguage().shown();
    if (const Companion* const companion = companionOf(language)) {
        // By its real name: before a name that only stands for others, such as Sans Serif, the companion would be
        // taken. Asked for only here, because the answer takes half a millisecond of the start.
        static const QString family = QFontInfo(ofTheDesktop).family();
        font.setFamilies(interfaceFontFamilies(family, language));
        font.setStyleStrategy(companion->mark);
    }
    if (font != QApplication::font()) {
        QApplication::setFont(font);
    }
}
