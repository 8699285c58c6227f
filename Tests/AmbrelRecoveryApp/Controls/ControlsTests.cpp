#include "../Support/TestEnvironment.h"
#include "AmbrelRecoveryApp/Controls/CenteredText.h"
#include "AmbrelRecoveryApp/Controls/PrimaryRecoveryButton.h"
#include "AmbrelRecoveryApp/Controls/ProgressIndicator.h"
#include "AmbrelRecoveryApp/Controls/ProgressRow.h"
#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/SecondaryRecoveryButton.h"
#include "AmbrelRecoveryApp/Controls/SegmentedPicker.h"
#include "AmbrelRecoveryApp/Controls/SymbolPainter.h"
#include "AmbrelRecoveryApp/Controls/TextLabel.h"
#include "AmbrelRecoveryApp/Screens/ButtonRow.h"

#include <QAccessible>
#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace {

QAccessibleInterface& accessible(QWidget* widget) {
    return *QAccessible::queryAccessibleInterface(widget);
}

void showActive(QWidget& widget) {
    widget.show();
    widget.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&widget));
}

/// How much of each row, between the first and the last point that is drawn in it, is not drawn; 0 to 1.
double emptyShareWithin(const QImage& image) {
    int within = 0;
    int empty = 0;
    for (int y = 0; y < image.height(); ++y) {
        int first = 0;
        int last = image.width() - 1;
        while (first <= last && qAlpha(image.pixel(first, y)) == 0) {
            ++first;
        }
        while (last >= first && qAlpha(image.pixel(last, y)) == 0) {
            --last;
        }
        for (int x = first; x <= last; ++x) {
            ++within;
            empty += qAlpha(image.pixel(x, y)) == 0 ? 1 : 0;
        }
    }
    return static_cast<double>(empty) / within;
}

TEST(RecoveryPaletteTest, hasTheColorsOfTheDesign) {
    EXPECT_EQ(RecoveryPalette::background().name(), QStringLiteral("#131110"));
    EXPECT_EQ(RecoveryPalette::rail().name(), QStringLiteral("#181614"));
    EXPECT_EQ(RecoveryPalette::primary().name(), QStringLiteral("#f0e8de"));
    EXPECT_EQ(RecoveryPalette::secondary().name(), QStringLiteral("#bdb3a8"));
    EXPECT_EQ(RecoveryPalette::muted().name(), QStringLiteral("#8c8278"));
    EXPECT_EQ(RecoveryPalette::copper().name(), QStringLiteral("#bf6e45"));
    EXPECT_EQ(RecoveryPalette::success().name(), QStringLiteral("#7aad87"));
    EXPECT_EQ(RecoveryPalette::warning().name(), QStringLiteral("#de9647"));
    EXPECT_NEAR(RecoveryPalette::card().alphaF(), 0.065, 1e-3);
    EXPECT_NEAR(RecoveryPalette::input().alphaF(), 0.18, 1e-3);
    EXPECT_NEAR(RecoveryPalette::line().alphaF(), 0.11, 1e-3);
}

TEST(SymbolPainterTest, drawsEverySymbolInTheGivenColor) {
    for (const RecoverySymbol symbol :
         {RecoverySymbol::checkmark, RecoverySymbol::checkmarkCircleFill, RecoverySymbol::checkmarkShield,
          RecoverySymbol::circle, RecoverySymbol::exclamationmarkTriangleFill, RecoverySymbol::folder,
          RecoverySymbol::personCropCircleBadgeXmark, RecoverySymbol::photoStackFill, RecoverySymbol::shippingboxFill,
          RecoverySymbol::squareAndArrowDown, RecoverySymbol::xmark}) {
        QImage image(96, 96, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        SymbolPainter::paint(painter, symbol, QRectF(0, 0, 96, 96), QColor(200, 100, 50));
        painter.end();
        int drawn = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                drawn += image.pixelColor(x, y) == QColor(200, 100, 50) ? 1 : 0;
            }
        }
        EXPECT_GT(drawn, 100) << static_cast<int>(symbol);
    }
}

TEST(SymbolPainterTest, fillsTheFilledSymbols) {
    constexpr int side = 200;
    for (const RecoverySymbol symbol :
         {RecoverySymbol::checkmarkCircleFill, RecoverySymbol::exclamationmarkTriangleFill,
          RecoverySymbol::photoStackFill, RecoverySymbol::shippingboxFill}) {
        QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        SymbolPainter::paint(painter, symbol, QRectF(0, 0, side, side), Qt::white);
        painter.end();
        EXPECT_LT(emptyShareWithin(image), 0.35) << static_cast<int>(symbol);
    }
}

TEST(TextLabelTest, isAsHighAsItsLines) {
    TextLabel text(recoveryFont(16, QFont::Normal), Qt::white, nullptr, 24);
    text.setText(QStringLiteral("one two three four five six seven eight nine ten"));
    const int wide = text.heightForWidth(10'000);
    EXPECT_EQ(wide, 24);
    EXPECT_EQ(text.heightForWidth(120) % 24, 0);
    EXPECT_GT(text.heightForWidth(120), wide);
}

TEST(TextLabelTest, adaptsItsHeightToItsTextAndFont) {
    TextLabel text(recoveryFont(16, QFont::Normal), Qt::white);
    text.setText(QStringLiteral("one"));
    const int oneLine = text.heightForWidth(120);
    text.setText(QStringLiteral("one two three four five six seven eight nine ten"));
    const int lines = text.heightForWidth(120);
    EXPECT_GT(lines, oneLine);
    text.setFont(recoveryFont(32, QFont::Normal));
    EXPECT_GT(text.heightForWidth(120), lines);
}

TEST(TextLabelTest, breaksAWordThatIsTooLong) {
    TextLabel text(recoveryFont(16, QFont::Normal), Qt::white);
    text.setText(QString(300, u'W'));
    EXPECT_GT(text.heightForWidth(100), text.heightForWidth(10'000));
}

TEST(TextLabelTest, isALabelNamedByItsText) {
    TextLabel text(recoveryFont(16, QFont::Normal), Qt::white);
    text.setText(QStringLiteral("a & <b>b</b>"));
    EXPECT_EQ(accessible(&text).role(), QAccessible::StaticText);
    EXPECT_EQ(accessible(&text).text(QAccessible::Name), QStringLiteral("a & <b>b</b>"));
}

TEST(TextLabelTest, stillHasHeightForWidthAfterItsTextChanges) {
    TextLabel label(recoveryFont(13, QFont::Normal), Qt::white);
    label.setText(QStringLiteral("Unlock the backup"));
    EXPECT_TRUE(label.sizePolicy().hasHeightForWidth());
}

TEST(CenteredTextTest, drawsTheSameWhateverTheDirectionOfThePainter) {
    const auto drawn = [](Qt::LayoutDirection direction) {
        QImage image(200, 30, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setLayoutDirection(direction);
        CenteredText::paint(painter, image.rect(), QStringLiteral("إظهار في Finder"));
        EXPECT_EQ(painter.layoutDirection(), direction);
        return image;
    };
    EXPECT_EQ(drawn(Qt::LeftToRight), drawn(Qt::RightToLeft));
}

TEST(RecoveryButtonTest, isNamedByItsLabelAndNeverCutOff) {
    PrimaryRecoveryButton button(RecoverySymbol::folder);
    button.setLabel(QStringLiteral("Save & close"));
    EXPECT_EQ(accessible(&button).text(QAccessible::Name), QStringLiteral("Save & close"));
    EXPECT_EQ(accessible(&button).role(), QAccessible::PushButton);
    EXPECT_GE(button.minimumSizeHint().width(), QFontMetrics(button.font()).horizontalAdvance(button.label()) + 40);
    EXPECT_GE(button.sizeHint().height(), 50);
}

TEST(RecoveryButtonTest, isPressedByMouseSpaceReturnAndAssistiveTechnology) {
    QWidget window;
    SecondaryRecoveryButton button(std::nullopt, &window);
    button.setLabel(QStringLiteral("Go"));
    button.resize(button.sizeHint());
    showActive(window);
    button.setFocus();
    QSignalSpy clicks(&button, &QPushButton::clicked);
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::keyClick(&button, Qt::Key_Space);
    QTest::keyClick(&button, Qt::Key_Return);
    EXPECT_EQ(clicks.count(), 3);
    accessible(&button).actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(clicks.count() == 4 || clicks.wait());
}

TEST(SegmentedPickerTest, isMadeOfRadioButtons) {
    SegmentedPicker picker(2);
    picker.apply({QStringLiteral("One"), QStringLiteral("Two")}, 1);
    const QList<QRadioButton*> segments = picker.findChildren<QRadioButton*>();
    ASSERT_EQ(segments.size(), 2);
    EXPECT_EQ(accessible(segments[0]).role(), QAccessible::RadioButton);
    EXPECT_EQ(accessible(segments[0]).text(QAccessible::Name), QStringLiteral("One"));
    EXPECT_FALSE(accessible(segments[0]).state().checked);
    EXPECT_TRUE(accessible(segments[1]).state().checked);
}

TEST(SegmentedPickerTest, reportsOnlyTheUsersChoices) {
    SegmentedPicker picker(2);
    QSignalSpy choices(&picker, &SegmentedPicker::chosen);
    picker.apply({QStringLiteral("One"), QStringLiteral("Two")}, 1);
    EXPECT_EQ(choices.count(), 0);
    const QList<QRadioButton*> segments = picker.findChildren<QRadioButton*>();
    QTest::mouseClick(segments[0], Qt::LeftButton);
    ASSERT_EQ(choices.count(), 1);
    EXPECT_EQ(choices.takeFirst().first().toInt(), 0);
    accessible(segments[1]).actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    ASSERT_EQ(choices.count(), 1);
    EXPECT_EQ(choices.takeFirst().first().toInt(), 1);
}

TEST(SegmentedPickerTest, arrowsMoveTheChoice) {
    SegmentedPicker picker(2);
    picker.apply({QStringLiteral("One"), QStringLiteral("Two")}, 0);
    picker.resize(300, 40);
    showActive(picker);
    const QList<QRadioButton*> segments = picker.findChildren<QRadioButton*>();
    segments[0]->setFocus();
    QTest::keyClick(segments[0], Qt::Key_Right);
    EXPECT_TRUE(segments[1]->isChecked());
    EXPECT_TRUE(segments[1]->hasFocus());
    QTest::keyClick(segments[1], Qt::Key_Left);
    EXPECT_TRUE(segments[0]->isChecked());
}

TEST(ProgressRowTest, aKnownFractionIsItsAccessibleValue) {
    ProgressRow row;
    row.apply({.fraction = 0.42,
               .percent = QStringLiteral("42%"),
               .title = QStringLiteral("Preparing"),
               .cancelLabel = QStringLiteral("Cancel")});
    QAccessibleInterface& bar = accessible(row.findChild<ProgressIndicator*>());
    EXPECT_EQ(bar.role(), QAccessible::ProgressBar);
    EXPECT_EQ(bar.text(QAccessible::Name), QStringLiteral("Preparing"));
    ASSERT_NE(bar.valueInterface(), nullptr);
    EXPECT_EQ(bar.valueInterface()->currentValue().toDouble(), 0.42);
    EXPECT_EQ(bar.valueInterface()->maximumValue().toDouble(), 1);
    EXPECT_FALSE(bar.state().busy);
}

TEST(ProgressRowTest, anUnknownFractionIsBusyWithoutAValue) {
    ProgressRow row;
    row.apply({.fraction = std::nullopt,
               .percent = {},
               .title = QStringLiteral("Inspecting"),
               .cancelLabel = QStringLiteral("Cancel")});
    QAccessibleInterface& bar = accessible(row.findChild<ProgressIndicator*>());
    EXPECT_EQ(bar.valueInterface(), nullptr);
    EXPECT_TRUE(bar.state().busy);
}

TEST(ProgressRowTest, theCancelButtonIsNamedAndNotPressedByReturn) {
    ProgressRow row;
    row.apply({.fraction = std::nullopt,
               .percent = {},
               .title = QStringLiteral("Inspecting"),
               .cancelLabel = QStringLiteral("Cancel")});
    row.resize(400, 50);
    showActive(row);
    QSignalSpy cancellations(&row, &ProgressRow::cancelled);
    QWidget* const cancel = row.cancelButton();
    EXPECT_EQ(accessible(cancel).text(QAccessible::Name), QStringLiteral("Cancel"));
    EXPECT_EQ(accessible(cancel).role(), QAccessible::PushButton);
    EXPECT_EQ(cancel->toolTip(), QStringLiteral("Cancel"));
    cancel->setFocus();
    QTest::keyClick(cancel, Qt::Key_Return);
    EXPECT_EQ(cancellations.count(), 0);
    QTest::keyClick(cancel, Qt::Key_Space);
    EXPECT_EQ(cancellations.count(), 1);
}

TEST(ButtonRowTest, stacksButtonsThatDoNotFit) {
    auto* const first = new PrimaryRecoveryButton(std::nullopt);
    auto* const second = new SecondaryRecoveryButton(std::nullopt);
    first->setLabel(QStringLiteral("First"));
    second->setLabel(QStringLiteral("Second"));
    ButtonRow row({first, second});
    const int wide = row.sizeHint().width();
    row.resize(wide, row.heightForWidth(wide));
    QApplication::sendPostedEvents();
    row.show();
    EXPECT_EQ(first->y(), second->y());
    row.resize(wide - 1, row.heightForWidth(wide - 1));
    EXPECT_GT(second->y(), first->y());
    EXPECT_LE(second->geometry().bottom(), row.rect().bottom());
}

} // namespace
