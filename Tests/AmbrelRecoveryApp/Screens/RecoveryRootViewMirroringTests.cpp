#include "AmbrelRecoveryApp/Controls/ScreenTransition.h"
#include "AmbrelRecoveryApp/Controls/TextLabel.h"
#include "AmbrelRecoveryApp/Screens/JourneyRail.h"
#include "AmbrelRecoveryApp/Screens/MainContent.h"
#include "RecoveryRootViewTestCase.h"
#include "ScreensTestSupport.h"

#include <QMap>
#include <QStyle>

#include <algorithm>
#include <utility>

namespace {

class RecoveryRootViewMirroringTest : public RecoveryRootViewTestCase {
protected:
    /// Where every part in sight lies in the view, by its kind and its place in the tree.
    QMap<QString, QRect> places() const {
        QMap<QString, QRect> places;
        const QList<QWidget*> parts = view->findChildren<QWidget*>();
        for (qsizetype index = 0; index < parts.size(); ++index) {
            const QWidget& part = *parts[index];
            // Neither is a part of the layout.
            const bool liesAbove =
                qobject_cast<const Announcer*>(&part) || qobject_cast<const ScreenTransition*>(&part);
            if (part.isVisible() && !liesAbove) {
                places[QStringLiteral("%1 %2").arg(part.metaObject()->className()).arg(index)] =
                    QRect(part.mapTo(view.get(), QPoint(0, 0)), part.size());
            }
        }
        return places;
    }

    /// Whether every text in sight has the height that it needs.
    bool haveTextsTheirHeight() const {
        return std::ranges::all_of(view->findChildren<TextLabel*>(), [](const TextLabel* label) {
            return !label->isVisible() || label->height() >= label->heightForWidth(label->width());
        });
    }

    /// The places once the layouts, one inside the other, have come to rest.
    QMap<QString, QRect> placesAtRest() const {
        QMap<QString, QRect> now;
        const bool isAtRest = QTest::qWaitFor([&] {
            const QMap<QString, QRect> earlier = std::exchange(now, places());
            return now == earlier && haveTextsTheirHeight();
        });
        EXPECT_TRUE(isAtRest);
        return now;
    }
};

TEST_F(RecoveryRootViewMirroringTest, theRailIsOnTheRightInArabic) {
    const ScopedLanguage arabic("ar", "ar_EG.UTF-8");
    open();
    redraw();
    const auto& rail = *view->findChild<JourneyRail*>();
    const auto& content = *view->findChild<MainContent*>();
    EXPECT_EQ(rail.geometry(), QRect(view->width() - rail.width(), 0, rail.width(), view->height()));
    EXPECT_EQ(content.geometry(), QRect(0, 0, view->width() - rail.width(), view->height()));
}

TEST_F(RecoveryRootViewMirroringTest, everyPartIsMirrored) {
    open();
    inspect(inspectionDocument());
    for (const Phase phase : {Phase::snapshots, Phase::chooseBackup}) {
        if (phase == Phase::chooseBackup) {
            model->startAgain();
        }
        redraw();
        const QMap<QString, QRect> before = placesAtRest();
        ASSERT_GT(before.size(), 15);
        // The texts stay as they are, so that only the direction changes what they take.
        view->setLayoutDirection(Qt::RightToLeft);
        const QMap<QString, QRect> after = placesAtRest();
        for (const auto& [name, place] : before.asKeyValueRange()) {
            const QRect mirrored = QStyle::visualRect(Qt::RightToLeft, view->rect(), place);
            EXPECT_EQ(after[name], mirrored) << name.toStdString();
        }
        view->setLayoutDirection(Qt::LeftToRight);
    }
}

} // namespace
