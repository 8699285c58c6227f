#include "LayoutReview.h"

#include "../ScreensTestSupport.h"
#include "AmbrelRecoveryApp/Controls/PrimaryRecoveryButton.h"
#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/SecureField.h"
#include "AmbrelRecoveryApp/Controls/SegmentButton.h"
#include "AmbrelRecoveryApp/Controls/TextLabel.h"
#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotList.h"
#include "AmbrelRecoveryApp/Screens/SnapshotsContent.h"

#include <QCoreApplication>
#include <QLabel>
#include <QScrollArea>
#include <gmock/gmock.h>

namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;

class LayoutReviewTest : public testing::Test {
protected:
    LayoutReviewTest() {
        window.resize(600, 400);
        window.show();
    }

    /// A label with this text in this place.
    TextLabel* label(const QString& text, const QRect& place) {
        auto* const label = new TextLabel(recoveryFont(13, QFont::Normal), Qt::white, &window);
        label->setText(text);
        return placed(label, place);
    }

    template<typename Widget>
    Widget* placed(Widget* widget, const QRect& place) {
        widget->setGeometry(place);
        widget->show();
        return widget;
    }

    std::vector<std::string> findings() {
        QCoreApplication::processEvents();
        return LayoutReview::findings(window);
    }

    QWidget window;
};

TEST_F(LayoutReviewTest, findsNothingIfEveryTextFits) {
    label(QStringLiteral("Unlock the backup"), {10, 10, 200, 30});
    label(QStringLiteral("Unlock the backup"), {10, 50, 60, 90});
    EXPECT_THAT(findings(), IsEmpty());
}

TEST_F(LayoutReviewTest, reportsALabelThatIsTooNarrowForItsText) {
    label(QStringLiteral("Unlock the backup"), {10, 10, 60, 20});
    EXPECT_THAT(findings(), Contains(HasSubstr("“Unlock the backup” (TextLabel): needs")));
}

TEST_F(LayoutReviewTest, reportsABrokenWord) {
    label(QStringLiteral("Wiederherstellung"), {10, 10, 60, 90});
    EXPECT_THAT(findings(), Contains(HasSubstr("is torn within a word")));
}

TEST_F(LayoutReviewTest, doesNotMistakeALineBreakBetweenIdeographsForABrokenWord) {
    label(QStringLiteral("バックアップパッケージを選択"), {10, 10, 60, 120});
    EXPECT_THAT(findings(), IsEmpty());
}

TEST_F(LayoutReviewTest, reportsALabelThatReachesOutOfTheWindow) {
    label(QStringLiteral("Unlock the backup"), {550, 10, 200, 30});
    EXPECT_THAT(findings(), Contains(HasSubstr("reaches out of")));
}

TEST_F(LayoutReviewTest, reportsOverlappingTexts) {
    label(QStringLiteral("one"), {10, 10, 100, 30});
    label(QStringLiteral("other"), {50, 30, 100, 30});
    EXPECT_THAT(findings(), Contains(HasSubstr("“one” (TextLabel): lies over “other”")));
}

TEST_F(LayoutReviewTest, reportsAButtonThatIsTooNarrowForItsLabel) {
    auto* const button = new PrimaryRecoveryButton(RecoverySymbol::checkmarkShield, &window);
    button->setLabel(QStringLiteral("Inspect backup"));
    placed(button, {10, 10, 90, 50});
    EXPECT_THAT(findings(), Contains(HasSubstr("“Inspect backup” (PrimaryRecoveryButton): needs")));
    button->resize(button->sizeHint() - QSize(10, 0));
    EXPECT_THAT(findings(), Contains(HasSubstr("is smaller than a button with its symbol")));
}

TEST_F(LayoutReviewTest, reportsASegmentThatIsTooNarrowForItsLabel) {
    auto* const segment = new SegmentButton(&window);
    segment->setLabel(QStringLiteral("Wiederherstellungsschlüssel"));
    placed(segment, {10, 10, 120, 28});
    EXPECT_THAT(findings(), Contains(HasSubstr("(SegmentButton): needs")));
}

TEST_F(LayoutReviewTest, reportsAPromptThatIsTooLongForItsField) {
    auto* const field = new SecureField(&window);
    field->setPrompt(QStringLiteral("Wiederherstellungsschlüssel"));
    placed(field, {10, 10, 120, 42});
    EXPECT_THAT(findings(), Contains(HasSubstr("(SecureField): needs")));
}

TEST_F(LayoutReviewTest, reportsRowsThatAreTooNarrow) {
    RecoveryScreenState state = stateIn(RecoveryScreenState::Phase::snapshots);
    auto* const list = new SnapshotList(&window);
    list->apply(snapshotsContent(state).rows);
    placed(list, {10, 10, 240, 158});
    EXPECT_THAT(findings(), Contains(HasSubstr("is too small to be read")));
    list->resize(500, 158);
    EXPECT_THAT(findings(), IsEmpty());
}

TEST_F(LayoutReviewTest, reportsContentThatWouldHaveToBeScrolledSideways) {
    auto* const area = new QScrollArea(&window);
    auto* const text = new TextLabel(recoveryFont(13, QFont::Normal), Qt::white);
    text->setText(QStringLiteral("Unlock the backup"));
    area->setWidget(text);
    text->resize(300, 600);
    placed(area, {10, 10, 320, 200});
    EXPECT_THAT(findings(), IsEmpty());
    area->resize(200, 200);
    EXPECT_THAT(findings(), Contains(HasSubstr("reaches out of")));
}

TEST_F(LayoutReviewTest, reportsAWidgetWhoseTextItCannotMeasure) {
    placed(new QLabel(QStringLiteral("text"), &window), {10, 10, 100, 30});
    EXPECT_THAT(findings(), Contains(HasSubstr("is not known to the review")));
}

} // namespace
