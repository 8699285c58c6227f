// What an export needs, and what the chosen place has free.

#include "../Support/HungFolder.h"
#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/TextLabel.h"
#include "AmbrelRecoveryApp/Controls/TextScale.h"
#include "AmbrelRecoveryApp/FilePanels/FolderView.h"
#include "AmbrelRecoveryApp/FilePanels/PanelNameField.h"
#include "AmbrelRecoveryApp/FilePanels/SpaceView.h"
#include "FilePanelsTestCase.h"

#include <QAccessible>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr std::uint64_t tooMuch = std::numeric_limits<std::uint64_t>::max();

class PanelSpaceTest : public FilePanelsTest {
protected:
    ~PanelSpaceTest() override { qunsetenv("LANGUAGE"); }

    static TextLabel& required(ItemPanel& panel) { return *label(panel, 0); }
    static TextLabel& available(ItemPanel& panel) { return *label(panel, 1); }

    static bool waitUntilAvailableIsShown(ItemPanel& panel) {
        return QTest::qWaitFor([&] { return available(panel).isVisible(); });
    }

    /// Whether a text is drawn in this color.
    static bool isDrawnIn(TextLabel& text, const QColor& color) {
        QImage picture(text.size(), QImage::Format_RGB32);
        picture.fill(RecoveryPalette::background());
        text.render(&picture, QPoint(), QRegion(), QWidget::RenderFlags());
        for (int row = 0; row < picture.height(); ++row) {
            for (int column = 0; column < picture.width(); ++column) {
                if (picture.pixelColor(column, row).rgb() == color.rgb()) {
                    return true;
                }
            }
        }
        return false;
    }

private:
    static TextLabel* label(ItemPanel& panel, qsizetype number) {
        return panel.findChild<SpaceView*>()->findChildren<TextLabel*>().at(number);
    }
};

} // namespace

class PanelSpaceSizeTest : public PanelSpaceTest, public testing::WithParamInterface<qreal> {};

TEST_F(PanelSpaceTest, isShownWithTheTextsOfTheCatalogue) {
    ItemPanel& panel = savePanel(1'500'000);
    EXPECT_EQ(required(panel).text(), "Required space: 1.5 MB");
    EXPECT_TRUE(required(panel).isVisible());
    ASSERT_TRUE(waitUntilAvailableIsShown(panel));
    EXPECT_TRUE(available(panel).text().startsWith("Available space: ")) << available(panel).text().toStdString();
    for (TextLabel* const text : {&required(panel), &available(panel)}) {
        QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(text);
        EXPECT_EQ(spoken->role(), QAccessible::StaticText);
        EXPECT_EQ(spoken->text(QAccessible::Name), text->text());
        EXPECT_FALSE(spoken->state().invisible);
    }
}

TEST_F(PanelSpaceTest, isAWarningIfItIsNotEnoughButRefusesNothing) {
    for (const std::uint64_t needed : {std::uint64_t(1), tooMuch}) {
        choices.clear();
        ItemPanel& panel = savePanel(needed);
        ASSERT_TRUE(waitUntilAvailableIsShown(panel));
        EXPECT_EQ(isDrawnIn(available(panel), RecoveryPalette::warning()), needed == tooMuch);
        EXPECT_EQ(isDrawnIn(available(panel), RecoveryPalette::secondary()), needed != tooMuch);
        EXPECT_TRUE(isDrawnIn(required(panel), RecoveryPalette::secondary()));
        exportButton(panel).click();
        expectOneChoice(home() / "Ambrel Recovered");
        QTest::qWait(0);
    }
}

TEST_F(PanelSpaceTest, isLeftOutIfItIsUnknown) {
    ItemPanel& panel = savePanel();
    EXPECT_FALSE(required(panel).isVisible());
    EXPECT_TRUE(waitUntilAvailableIsShown(panel));
    nameField(panel).setText("missing/new");
    EXPECT_FALSE(available(panel).isVisible());
    waitForBackground();
    EXPECT_FALSE(available(panel).isVisible());
    panel.reject();
    QTest::qWait(0);
    EXPECT_EQ(openPanel().findChild<SpaceView*>(), nullptr);
}

TEST_F(PanelSpaceTest, isThatOfTheTypedPlace) {
    ItemPanel& panel = savePanel();
    ASSERT_TRUE(waitUntilAvailableIsShown(panel));
    nameField(panel).setText("folder/new");
    EXPECT_FALSE(available(panel).isVisible());
    EXPECT_TRUE(waitUntilAvailableIsShown(panel));
    // The system's own files take no space of any disk.
    nameField(panel).setText("/proc/new");
    EXPECT_FALSE(available(panel).isVisible());
    waitForBackground();
    EXPECT_FALSE(available(panel).isVisible());
    nameField(panel).setText("~/new");
    EXPECT_TRUE(waitUntilAvailableIsShown(panel));
}

TEST_F(PanelSpaceTest, isThatOfTheLatestFolderWhileAnEarlierOneHangs) {
    ItemPanel& panel = savePanel();
    waitForFolder(panel, home());
    ASSERT_TRUE(waitUntilAvailableIsShown(panel));
    {
        const HungFolder hung(home() / "folder");
        nameField(panel).setText("folder/new");
        EXPECT_TRUE(QTest::qWaitFor([] { return HungFolder::hangingCalls() > 0; }));
        EXPECT_FALSE(available(panel).isVisible());
        nameField(panel).setText("new");
        EXPECT_TRUE(waitUntilAvailableIsShown(panel));
        nameField(panel).setText("folder/new");
        exportButton(panel).click();
        panel.reject();
        expectOneChoice(std::nullopt);
        EXPECT_EQ(HungFolder::callsOfThisThread(), 0);
    }
    waitForBackground();
}

TEST_F(PanelSpaceTest, movesNothingWhenItAppears) {
    for (const char* language : {"en", "ja"}) {
        qputenv("LANGUAGE", language);
        auto hung = std::make_unique<HungFolder>(home());
        ItemPanel& panel = savePanel(1);
        EXPECT_TRUE(QTest::qWaitFor([] { return HungFolder::hangingCalls() > 0; }));
        EXPECT_FALSE(available(panel).isVisible());
        const QRect before = list(panel).geometry();
        hung.reset();
        ASSERT_TRUE(waitUntilAvailableIsShown(panel));
        panel.layout()->activate();
        EXPECT_EQ(list(panel).geometry(), before);
        panel.close();
        QTest::qWait(0);
    }
}

TEST_P(PanelSpaceSizeTest, isShownInFullInEveryLanguageAtTheSmallestSize) {
    TextScale::setFactor(GetParam());
    for (const QString& language : AmbrelStrings::launchLocaleIdentifiers()) {
        SCOPED_TRACE(language.toStdString());
        qputenv("LANGUAGE", language.toUtf8());
        ItemPanel& panel = savePanel(888'888'888'888);
        panel.resize(panel.minimumSize());
        ASSERT_TRUE(waitUntilAvailableIsShown(panel));
        QTest::qWait(0);
        EXPECT_EQ(panel.size(), panel.minimumSize());
        EXPECT_GT(list(panel).viewport()->height(), 100);
        for (TextLabel* const text : {&required(panel), &available(panel)}) {
            EXPECT_GE(text->width(), text->sizeHint().width());
            EXPECT_GE(text->height(), text->heightForWidth(text->width()));
            const QRect place(text->mapTo(&panel, QPoint(0, 0)), text->size());
            EXPECT_TRUE(panel.rect().contains(place));
            EXPECT_FALSE(
                place.intersects(QRect(nameField(panel).mapTo(&panel, QPoint(0, 0)), nameField(panel).size())));
            EXPECT_LT(place.bottom(), exportButton(panel).y());
        }
        panel.close();
        QTest::qWait(0);
    }
    TextScale::setFactor(1);
}

INSTANTIATE_TEST_SUITE_P(Texts, PanelSpaceSizeTest, testing::Values(1.0, TextScale::largest));

TEST_F(PanelSpaceTest, itsPanelGrowsWithTheTextsIfTheScreenHasRoom) {
    ItemPanel& panel = savePanel();
    const QSize usual = panel.size();
    panel.close();
    QTest::qWait(0);
    TextScale::setFactor(TextScale::largest);
    const QSize enlarged = savePanel().size();
    TextScale::setFactor(1);
    EXPECT_GT(enlarged.height(), usual.height());
    EXPECT_LE(enlarged.height(), window->screen()->availableSize().height());
}

TEST_F(PanelSpaceTest, isRightAlignedInArabic) {
    qputenv("LANGUAGE", "ar");
    ItemPanel& panel = savePanel(1);
    QTest::qWait(0);
    TextLabel& text = required(panel);
    QImage picture(text.size(), QImage::Format_RGB32);
    picture.fill(Qt::black);
    text.render(&picture, QPoint(), QRegion(), QWidget::RenderFlags());
    int first = picture.width();
    for (int row = 0; row < picture.height(); ++row) {
        for (int column = 0; column < first; ++column) {
            if (qGray(picture.pixel(column, row)) > 0) {
                first = column;
            }
        }
    }
    EXPECT_GT(first, picture.width() / 2);
    EXPECT_LT(first, picture.width());
}
