#include "AmbrelRecoveryApp/Controls/CopperGlow.h"
#include "AmbrelRecoveryApp/Controls/Notice.h"
#include "AmbrelRecoveryApp/Controls/PrimaryRecoveryButton.h"
#include "AmbrelRecoveryApp/Controls/ProgressRow.h"
#include "AmbrelRecoveryApp/Controls/SecondaryRecoveryButton.h"
#include "AmbrelRecoveryApp/Controls/SymbolView.h"
#include "AmbrelRecoveryApp/Controls/TextLabel.h"
#include "AmbrelRecoveryApp/Screens/CompletionScreen.h"
#include "AmbrelRecoveryApp/Screens/CredentialCard.h"
#include "AmbrelRecoveryApp/Screens/HeaderView.h"
#include "AmbrelRecoveryApp/Screens/JourneyRail.h"
#include "AmbrelRecoveryApp/Screens/PackageCard.h"
#include "AmbrelRecoveryApp/Screens/PreparationCard.h"
#include "AmbrelRecoveryApp/Screens/RailStep.h"
#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotListModel.h"
#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotRowDelegate.h"
#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotRowLayout.h"
#include "AmbrelRecoveryApp/Screens/SnapshotsScreen.h"
#include "AmbrelRecoveryApp/Screens/StepMark.h"
#include "DrawnShape.h"
#include "RecoveryRootViewTestCase.h"

#include <QPainter>
#include <QStyleOptionViewItem>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

/// One measure of the design, and what it really is.
struct Metric {
    const char* name;
    double designed;
    double measured;
    double tolerance = 0;
};

/// A step of an opacity that is kept in eight bits.
constexpr double opacityStep = 1.0 / 255;
/// What the magnifying glass can tell apart.
constexpr double drawnStep = 0.4;
/// What it can tell of symbols, which it shows sharply.
constexpr double symbolStep = 0.15;
/// How much of its square the drawing of a bold checkmark is wide.
constexpr double checkmarkShare = 0.87;

class DesignMetricsTest : public RecoveryRootViewTestCase {
protected:
    /// Walks to the end, so that every screen is there.
    void walk() {
        open();
        inspect(inspectionDocument("unresolved-fork"));
        redraw();
        measureRows();
        model->setSelectedSnapshotCode(model->inspection()->snapshots.front().selectionCode);
        exportEverything();
        redraw();
    }

    template<typename Widget>
    Widget& the() const {
        return *view->findChild<Widget*>();
    }

    /// The labels that lie in `parent` itself, in the order in which they were made.
    static QList<TextLabel*> labels(const QWidget& parent) { return parent.findChildren<TextLabel*>(); }

    void add(const char* name, double designed, double measured, double tolerance = 0) {
        metrics.push_back({name, designed, measured, tolerance});
    }

    void addFont(const char* name, const QFont& font, int size, QFont::Weight weight) {
        add(name, size, font.pixelSize());
        add(name, weight, font.weight());
    }

    void measureRail() {
        const JourneyRail& rail = the<JourneyRail>();
        auto& badge = *rail.findChild<SymbolView*>(QString(), Qt::FindDirectChildrenOnly);
        const DrawnShape drawn(badge);
        add("brand: side", 44, badge.width());
        add("brand: radius", 12, drawn.cornerRadius(), drawnStep);
        add("brand: fill", 0.16, drawn.opacityAt({22, 3}), opacityStep);
        add("brand: symbol", 18, drawn.extent(badge.rect()), symbolStep);
        addFont("brand: name", labels(rail)[0]->font(), 19, QFont::DemiBold);
        addFont("brand: product", labels(rail)[1]->font(), 12, QFont::Medium);
        const QList<RailStep*> steps = rail.findChildren<RailStep*>();
        auto& mark = *steps[0]->findChild<StepMark*>();
        const DrawnShape completed(mark);
        add("step: fill", 0.18, completed.opacityAt({13, 3}), opacityStep);
        add("step: checkmark", 10 * checkmarkShare, completed.extent({6, 6, 14, 14}), symbolStep);
        addFont("step: number", mark.font(), 10, QFont::Bold);
        const TextLabel& title = *labels(*steps[0])[0];
        addFont("step: title", title.font(), 13, QFont::Normal);
        addFont("step: active title", labels(*steps[2])[0]->font(), 13, QFont::DemiBold);
        add("step: spacing", 5, title.x() - (mark.x() + mark.width()));
    }

    void measureHeader() {
        const QList<TextLabel*> texts = labels(the<HeaderView>());
        addFont("header: badge", texts[0]->font(), 11, QFont::Bold);
        add("header: tracking", 2.1, texts[0]->font().letterSpacing(), 0.01);
        addFont("header: title", texts[1]->font(), 42, QFont::Light);
        addFont("header: body", texts[2]->font(), 16, QFont::Normal);
        TextLabel& body = *texts[2];
        body.setText(QStringLiteral("one"));
        const int oneLine = body.heightForWidth(400);
        body.setText(QStringLiteral("one\u2028two"));
        add("header: line spacing", 1.5 * 16, body.heightForWidth(400) - oneLine);
    }

    void measureChooseBackup() {
        const PackageCard& package = the<PackageCard>();
        add("package: symbol", 22, package.findChild<SymbolView*>()->width());
        addFont("package: name", labels(package)[0]->font(), 16, QFont::DemiBold);
        addFont("package: kind", labels(package)[1]->font(), 12, QFont::Normal);
        addFont("preparation: text", labels(the<PreparationCard>())[1]->font(), 12, QFont::Normal);
        const QList<TextLabel*> credential = labels(the<CredentialCard>());
        addFont("credential: title", credential[0]->font(), 20, QFont::DemiBold);
        addFont("credential: body", credential[1]->font(), 13, QFont::Normal);
        addFont("credential: kind", credential[2]->font(), 12, QFont::DemiBold);
        addFont("credential: field", the<SecureField>().font(), 15, QFont::Normal);
        const QList<TextLabel*> progress = labels(the<ProgressRow>());
        add("progress: percent", QFont::DemiBold, progress[0]->font().weight());
        add("progress: title", QFont::Medium, progress[1]->font().weight());
    }

    void measureSnapshots() {
        auto& notice = the<Notice>();
        add("notice: symbol", 18, notice.findChild<SymbolView*>()->width());
        addFont("notice: title", labels(notice)[0]->font(), 15, QFont::DemiBold);
        addFont("notice: body", labels(notice)[1]->font(), 13, QFont::Normal);
        add("notice: fill", 0.08, DrawnShape(notice).opacityAt(QRectF(notice.rect()).center()), opacityStep);
        for (const TextLabel* const label : labels(the<SnapshotsScreen>())) {
            if (label->parent() == &the<SnapshotsScreen>()) {
                addFont("snapshots: title", label->font(), 21, QFont::DemiBold);
            }
        }
    }

    /// While the list is in sight.
    void measureRows() {
        const QModelIndex index = list().model()->index(0, 0);
        QRect row = SnapshotRowDelegate::rowRect(list().visualRect(index));
        const auto layout = SnapshotRowLayout::of(list().snapshotModel().content(index), row, Qt::LeftToRight);
        add("row: mark", 20, layout.mark.width());
        addFont("row: date", layout.date.font, 15, QFont::DemiBold);
        addFont("row: facts", layout.facts.font, 12, QFont::Normal);
        add("row: left", 17, layout.mark.left() - row.left());
        add("row: top", 17, layout.date.place.top() - row.top());
        add("row: right", 17, row.right() - layout.payload.place.right());
        add("row: bottom", 17, row.bottom() - layout.facts.place.bottom());
        const DrawnShape drawn(row.size(), [&](QPainter& painter) {
            QStyleOptionViewItem option;
            option.widget = &list();
            option.rect = QRect(0, 0, row.width(), list().visualRect(index).height());
            list().itemDelegate()->paint(&painter, option, index);
        });
        add("row: radius", 16, drawn.cornerRadius(), drawnStep);
    }

    void measureCompletion() {
        const CompletionScreen& completion = the<CompletionScreen>();
        auto& circle = *completion.findChild<SymbolView*>();
        const DrawnShape drawn(circle);
        add("completion: circle", circle.width() / 2.0, drawn.cornerRadius(), drawnStep);
        add("completion: fill", 0.14, drawn.opacityAt({circle.width() / 2.0, 4}), opacityStep);
        add("completion: checkmark", 24 * checkmarkShare, drawn.extent(circle.rect()), symbolStep);
        addFont("completion: title", labels(completion)[0]->font(), 24, QFont::DemiBold);
        addFont("completion: count", labels(completion)[1]->font(), 15, QFont::Normal);
    }

    template<typename Button>
    void measureButton(const char* name, QFont::Weight weight, double pressed, bool dimsTheLabel) {
        Button button(std::nullopt);
        button.setLabel(QStringLiteral("Export"));
        button.resize(button.sizeHint());
        addFont(name, button.font(), 15, weight);
        const double label = QFontMetricsF(button.font()).horizontalAdvance(button.label());
        add(name, 20, (button.width() - std::ceil(label)) / 2);
        const DrawnShape released(button);
        add(name, 14, released.cornerRadius(), drawnStep);
        const QPointF beside(8, button.height() / 2.0);
        button.setDown(true);
        const DrawnShape held(button);
        const double fill = held.opacityAt(beside);
        add(name, pressed,
            dimsTheLabel ? (held.highestOpacity() - fill) / (1 - fill) : fill / released.opacityAt(beside),
            2 * opacityStep);
    }

    void measureButtons() {
        measureButton<PrimaryRecoveryButton>("primary button", QFont::DemiBold, 0.76, false);
        measureButton<SecondaryRecoveryButton>("secondary button", QFont::Medium, 0.78, true);
        const QList<PrimaryRecoveryButton*> primaries = view->findChildren<PrimaryRecoveryButton*>();
        for (const PrimaryRecoveryButton* const button : primaries) {
            add("primary button: least height", 50, std::min(50, button->sizeHint().height()));
            if (button->isVisible()) {
                add("primary button: height", 50, std::min(50, button->height()));
            }
        }
        // Inspecting, exporting, showing the folder, and closing the alert.
        add("primary buttons", 4, static_cast<double>(primaries.size()));
    }

    void measureGlow() {
        CopperGlow glow;
        constexpr QSize size(880, 660);
        const DrawnShape drawn(size, [&](QPainter& painter) { glow.paint(painter, size, Qt::LeftToRight); });
        add("glow", 0.12, drawn.opacityAt({775, 63}), opacityStep);
    }

    std::vector<Metric> metrics;
};

} // namespace

TEST_F(DesignMetricsTest, areThoseOfTheDesign) {
    walk();
    measureRail();
    measureHeader();
    measureChooseBackup();
    measureSnapshots();
    measureCompletion();
    measureGlow();
    model->startAgain();
    choosePackage();
    setEngineThatFails("did not unlock");
    type(QStringLiteral("secret"));
    model->inspectBackup();
    waitUntil([this] { return model->presentedError().has_value(); });
    redraw();
    measureButtons();
    for (const Metric& metric : metrics) {
        EXPECT_NEAR(metric.measured, metric.designed, metric.tolerance) << metric.name;
    }
}
