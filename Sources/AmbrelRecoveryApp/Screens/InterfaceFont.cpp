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
    /// Has no effect on outline fonts. Qt caches fonts by the request, but of its families only by the first: without
    /// this mark, a font that was loaded for one language would be reused for another.
    QFont::StyleStrategy mark;
};

/// Families that are designed to match one another across scripts.
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
        // A desktop in another of these languages may use that language's companion for all of its texts.
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
        // The real name of the family: the companion would take precedence over a mere alias, such as Sans Serif.
        // Queried only here, because that takes half a millisecond at startup.
        static const QString family = QFontInfo(ofTheDesktop).family();
        font.setFamilies(interfaceFontFamilies(family, language));
        font.setStyleStrategy(companion->mark);
    }
    if (font != QApplication::font()) {
        QApplication::setFont(font);
    }
}
