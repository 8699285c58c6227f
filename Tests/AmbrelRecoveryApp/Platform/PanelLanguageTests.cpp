#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelRecoveryApp/Platform/FolderView.h"
#include "AmbrelRecoveryApp/Platform/PanelNameField.h"
#include "AmbrelRecoveryApp/Platform/PanelTexts.h"
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

    static QSet<QString> wordsOf(const QString& language) {
        using namespace AmbrelStrings;
        QSet<QString> words{QString()};
        for (int number = 0; number < PanelTexts::textCount; ++number) {
            words += PanelTexts::resolved(static_cast<PanelTexts::Text>(number), language);
        }
        for (const LocalizedStringResource& resource : interfaceResources()) {
            words += resolved(resource, language);
        }
        return words;
    }
};

} // namespace

TEST_F(PanelLanguageTest, everyWordIsOfTheInterfaceLanguage) {
    for (const QString& language : AmbrelStrings::launchLocaleIdentifiers()) {
        qputenv("LANGUAGE", language.toUtf8());
        const QSet<QString> known = wordsOf(language);
        for (const bool isSaving : {false, true}) {
            ItemPanel& panel = isSaving ? savePanel() : openPanel();
            waitForFolder(panel, home());
            QSet<QString> unknown = words(panel) - known;
            unknown -= {QString::fromStdString(home().native()), "Export", "Choose backup package"};
            EXPECT_TRUE(unknown.isEmpty())
                << language.toStdString() << ": " << unknown.values().join(" | ").toStdString();
            panel.close();
            QTest::qWait(0);
        }
    }
}

TEST_F(PanelLanguageTest, sizesAreWrittenAsTheLanguageDoes) {
    qputenv("LC_ALL", "de_DE.UTF-8");
    ItemPanel& panel = openPanel();
    const QModelIndex file = row(panel, home() / "file.txt");
    EXPECT_EQ(file.siblingAtColumn(FolderModel::size).data().toString(),
              AmbrelStrings::formattedFileSize(1, icu::Locale("de_DE")));
    EXPECT_TRUE(file.siblingAtColumn(FolderModel::date).data().toString().contains(u'.'));
    qunsetenv("LC_ALL");
}

TEST_F(PanelLanguageTest, arabicRunsFromRightToLeft) {
    qputenv("LANGUAGE", "ar");
    ItemPanel& panel = openPanel();
    EXPECT_EQ(panel.layoutDirection(), Qt::RightToLeft);
    EXPECT_EQ(nameField(panel).layoutDirection(), Qt::RightToLeft);
    EXPECT_LT(button(panel, "Choose backup package")->x(), panel.width() / 2);
}

TEST_F(PanelLanguageTest, theMenuOfTheNameFieldIsOfTheInterfaceLanguage) {
    qputenv("LANGUAGE", "de");
    ItemPanel& panel = savePanel();
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), nameField(panel).mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&nameField(panel), &event);
    auto* const menu = nameField(panel).findChild<QMenu*>();
    ASSERT_NE(menu, nullptr);
    QStringList texts;
    for (const QAction* const action : menu->actions()) {
        texts += action->text();
    }
    EXPECT_EQ(texts, (QStringList{"Ausschneiden", "Kopieren", "Einfügen", "", "Alles auswählen"}));
    menu->close();
}
