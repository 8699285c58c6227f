#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelRecoveryApp/Controls/PrimaryRecoveryButton.h"
#include "AmbrelRecoveryApp/Controls/SecondaryRecoveryButton.h"
#include "AmbrelRecoveryApp/FilePanels/FolderView.h"
#include "AmbrelRecoveryApp/FilePanels/NewFolderPanel.h"
#include "AmbrelRecoveryApp/FilePanels/PanelNameField.h"
#include "AmbrelRecoveryApp/Foundation/RecoveryAppCopy.h"
#include "FilePanelsTestCase.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QContextMenuEvent>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QSet>
#include <QTest>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <utility>

namespace {

/// A panel in a language that the environment asks for.
class PanelLanguageTest : public FilePanelsTest {
protected:
    ~PanelLanguageTest() override { qunsetenv("LANGUAGE"); }

    /// Every word that the panel shows, says or has in a tooltip, apart from the names of files and places.
    static QSet<QString> words(ItemPanel& panel) {
        QSet<QString> words;
        for (auto* const widget : panel.findChildren<QWidget*>()) {
            const QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(widget);
            words += {widget->toolTip(), widget->accessibleName(), widget->accessibleDescription(),
                      spoken->text(QAccessible::Name)};
        }
        for (auto* const label : panel.findChildren<QLabel*>()) {
            words += label->text();
        }
        const auto& model = *panel.findChild<FolderModel*>();
        for (int column = 0; column < model.columnCount(); ++column) {
            words += model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
        }
        return words;
    }

    /// What stands before the sizes of the space that is needed and of the space that is free.
    static QSet<QString> withoutSizes(const QSet<QString>& words) {
        QSet<QString> labels;
        for (const QString& word : words) {
            labels += word.section(QStringLiteral(": "), 0, 0);
        }
        return labels;
    }

    static SecondaryRecoveryButton& backButton(ItemPanel& panel) {
        const QList<SecondaryRecoveryButton*> buttons = panel.findChildren<SecondaryRecoveryButton*>();
        const QString name = AmbrelStrings::localized(AmbrelStrings::genericBack());
        return **std::ranges::find(buttons, name, &SecondaryRecoveryButton::accessibleName);
    }

    /// The column of the brightest pixel in a row.
    static int brightest(const QImage& image, int row) {
        int column = 0;
        for (int candidate = 0; candidate < image.width(); ++candidate) {
            if (qGray(image.pixel(candidate, row)) > qGray(image.pixel(column, row))) {
                column = candidate;
            }
        }
        return column;
    }

    static QMenu& menuOfNameField(ItemPanel& panel) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), nameField(panel).mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(&nameField(panel), &event);
        return *nameField(panel).findChild<QMenu*>();
    }

    static QSet<QString> wordsOf(const QString& language) {
        using namespace AmbrelStrings;
        QSet<QString> words{QString()};
        for (std::size_t number = 0; number < RecoveryAppCopy::textCount; ++number) {
            words += RecoveryAppCopy::text(static_cast<RecoveryAppCopy::Text>(number),
                                           icu::Locale(language.toStdString().c_str()));
        }
        for (const LocalizedStringResource& resource : interfaceResources()) {
            words += resolved(resource, language);
        }
        return words;
    }
};

} // namespace

TEST_F(PanelLanguageTest, everyWordIsInTheInterfaceLanguage) {
    for (const QString& language : AmbrelStrings::launchLocaleIdentifiers()) {
        qputenv("LANGUAGE", language.toUtf8());
        const QSet<QString> known = wordsOf(language);
        for (const bool isSaving : {false, true}) {
            ItemPanel& panel = isSaving ? savePanel() : openPanel();
            waitForFolder(panel, home());
            waitForBackground();
            QSet<QString> unknown = withoutSizes(words(panel)) - known;
            unknown -= {QString::fromStdString(home().native()), "Export", "Choose backup package"};
            EXPECT_TRUE(unknown.isEmpty())
                << language.toStdString() << ": " << unknown.values().join(" | ").toStdString();
            panel.close();
            QTest::qWait(0);
        }
    }
}

TEST_F(PanelLanguageTest, sizesAreWrittenByTheRulesOfTheLanguage) {
    qputenv("LC_ALL", "de_DE.UTF-8");
    ItemPanel& panel = openPanel();
    const QModelIndex file = row(panel, home() / "file.txt");
    EXPECT_EQ(file.siblingAtColumn(FolderModel::size).data().toString(),
              AmbrelStrings::formattedFileSize(1, icu::Locale("de_DE")));
    EXPECT_TRUE(file.siblingAtColumn(FolderModel::date).data().toString().contains(u'.'));
    qunsetenv("LC_ALL");
}

TEST_F(PanelLanguageTest, datesAreInTheSystemsTimeZone) {
    using namespace std::chrono;
    constexpr sys_seconds noon = sys_days(year(2026) / 7 / 15) + hours(12);
    std::filesystem::last_write_time(home() / "file.txt", file_clock::from_sys(noon));
    qputenv("LC_ALL", "de_DE.UTF-8");
    qputenv("TZ", "<+0530>-5:30");
    ItemPanel& panel = openPanel();
    const QModelIndex file = row(panel, home() / "file.txt");
    EXPECT_EQ(file.siblingAtColumn(FolderModel::date).data().toString(), QStringLiteral("15. Juli 2026, 17:30"));
    qunsetenv("LC_ALL");
    qunsetenv("TZ");
}

TEST_F(PanelLanguageTest, arabicRunsFromRightToLeft) {
    qputenv("LANGUAGE", "ar");
    ItemPanel& panel = openPanel();
    EXPECT_EQ(panel.layoutDirection(), Qt::RightToLeft);
    EXPECT_EQ(nameField(panel).layoutDirection(), Qt::RightToLeft);
    EXPECT_LT(button(panel, "Choose backup package")->x(), panel.width() / 2);
}

TEST_F(PanelLanguageTest, theBackSymbolPointsAgainstTheReadingDirection) {
    // How far the tip, in the middle, lies to the right of the upper end.
    const auto pointsRightBy = [this](const char* language) {
        qputenv("LANGUAGE", language);
        ItemPanel& panel = openPanel();
        const SecondaryRecoveryButton& back = backButton(panel);
        const QImage image = panel.grab(QRect(back.mapTo(&panel, QPoint(0, 0)), back.size())).toImage();
        const int distance = brightest(image, image.height() / 2) - brightest(image, image.height() / 2 - 4);
        panel.close();
        QTest::qWait(0);
        return distance;
    };
    EXPECT_LE(pointsRightBy("en"), -2);
    EXPECT_GE(pointsRightBy("ar"), 2);
}

TEST_F(PanelLanguageTest, thePanelForANewFolderRunsFromRightToLeftInArabic) {
    qputenv("LANGUAGE", "ar");
    ItemPanel& panel = savePanel();
    waitForFolder(panel, home());
    button(panel, AmbrelStrings::localized(AmbrelStrings::organizationNewFolder()))->click();
    const auto& asking = *panel.findChild<NewFolderPanel*>();
    EXPECT_EQ(asking.layoutDirection(), Qt::RightToLeft);
    EXPECT_EQ(asking.findChild<PanelNameField*>()->layoutDirection(), Qt::RightToLeft);
    const auto* const create = asking.findChild<PrimaryRecoveryButton*>();
    const auto* const cancel = asking.findChild<SecondaryRecoveryButton*>();
    EXPECT_LT(create->x(), cancel->x());
    EXPECT_LT(create->x(), asking.width() / 4);
}

TEST_F(PanelLanguageTest, theMenuOfTheNameFieldHasTheDirectionOfThePanel) {
    for (const auto& [language, direction] : {std::pair("en", Qt::LeftToRight), std::pair("ar", Qt::RightToLeft)}) {
        qputenv("LANGUAGE", language);
        ItemPanel& panel = savePanel();
        QMenu& menu = menuOfNameField(panel);
        EXPECT_EQ(menu.layoutDirection(), direction) << language;
        menu.close();
        panel.close();
        QTest::qWait(0);
    }
}

TEST_F(PanelLanguageTest, theMenuOfTheNameFieldIsInTheInterfaceLanguage) {
    qputenv("LANGUAGE", "de");
    ItemPanel& panel = savePanel();
    QMenu& menu = menuOfNameField(panel);
    QStringList texts;
    for (const QAction* const action : menu.actions()) {
        texts += action->text();
    }
    EXPECT_EQ(texts, (QStringList{"Ausschneiden", "Kopieren", "Einfügen", "", "Alles auswählen"}));
    menu.close();
}
