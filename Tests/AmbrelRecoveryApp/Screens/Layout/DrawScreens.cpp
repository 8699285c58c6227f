// Draws every state of the screens.
//
// Usage: draw-screens FOLDER WIDTH HEIGHT [LANGUAGE...]
//
// Texts are enlarged by the factor in AMBREL_TEXT_SCALE, and borders stand out where AMBREL_CONTRAST is set.
// The pictures are FOLDER/<language>/<number>-<state>.png; without a language, all are drawn.

#include "../../Controls/MovingStyle.h"
#include "../ScreensTestSupport.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/TextScale.h"
#include "ScreenWalk.h"
#include "SystemLanguages.h"

#include <QApplication>
#include <QDir>
#include <QPixmap>
#include <gtest/gtest.h>

#include <cstdio>

namespace {

/// Gives whether every picture could be written.
bool draw(const SystemLanguage& language, const QDir& folder, const QSize& size) {
    const ScopedLanguage scope(language.tag, language.locale);
    int number = 0;
    bool isWritten = folder.mkpath(QStringLiteral("."));
    ScreenWalk().visitEveryState(size, [&](const QString& name, RecoveryRootView& view) {
        const QString file = QStringLiteral("%1-%2.png").arg(++number, 2, 10, QLatin1Char('0')).arg(name);
        isWritten = view.grab().save(folder.filePath(file)) && isWritten;
    });
    return isWritten;
}

} // namespace

int main(int argumentCount, char** arguments) {
    prepareEnvironment();
    // Without motion: a picture shows a state, and not the way to it.
    QApplication::setStyle(new MovingStyle(0));
    QApplication application(argumentCount, arguments);
    testing::InitGoogleTest(&argumentCount, arguments);
    TextScale::setFactor(qEnvironmentVariable("AMBREL_TEXT_SCALE", QStringLiteral("1")).toDouble());
    RecoveryPalette::setContrastIncreased(qEnvironmentVariableIsSet("AMBREL_CONTRAST"));
    const QStringList words = QCoreApplication::arguments().mid(1);
    if (words.size() < 3) {
        std::fputs("Usage: draw-screens FOLDER WIDTH HEIGHT [LANGUAGE...]\n", stderr);
        return 2;
    }
    const QSize size(words[1].toInt(), words[2].toInt());
    bool isDrawn = true;
    for (const SystemLanguage& language : systemLanguages) {
        const QString tag = QString::fromLatin1(language.tag);
        if (words.size() == 3 || words.indexOf(tag, 3) >= 0) {
            isDrawn = draw(language, QDir(QDir(words[0]).filePath(tag)), size) && isDrawn;
        }
    }
    return isDrawn && !testing::Test::HasFailure() ? 0 : 1;
}
