#include "AmbrelRecoveryApp/Screens/RailStep.h"

#include "AmbrelRecoveryApp/Screens/JourneyRail.h"
#include "ScreensTestSupport.h"

#include <QAccessible>
#include <gtest/gtest.h>

#include <vector>

namespace {

using Phase = RecoveryScreenState::Phase;

/// What one step tells of itself.
struct Told {
    bool isSelected = false;
    bool isChecked = false;
    QString description;

    bool operator==(const Told&) const = default;
};

void PrintTo(const Told& told, std::ostream* stream) {
    *stream << (told.isSelected ? "selected" : "not selected") << (told.isChecked ? ", checked" : ", not checked")
            << ", “" << told.description.toStdString() << "”";
}

class RailStepTest : public testing::Test {
protected:
    void show(Phase phase) { rail.apply(journeyRailContent(stateIn(phase))); }

    QList<RailStep*> steps() const { return rail.findChildren<RailStep*>(); }

    std::vector<Told> told() const {
        std::vector<Told> told;
        for (RailStep* const step : steps()) {
            const QAccessibleInterface& item = *QAccessible::queryAccessibleInterface(step);
            told.push_back({.isSelected = item.state().selected != 0,
                            .isChecked = item.state().checked != 0,
                            .description = item.text(QAccessible::Description)});
        }
        return told;
    }

    JourneyRail rail;
};

TEST_F(RailStepTest, areListItemsInTheirOrder) {
    show(Phase::chooseBackup);
    QStringList names;
    for (RailStep* const step : steps()) {
        const QAccessibleInterface& item = *QAccessible::queryAccessibleInterface(step);
        EXPECT_EQ(item.role(), QAccessible::ListItem);
        EXPECT_EQ(item.parent()->role(), QAccessible::List);
        EXPECT_EQ(item.parent()->indexOfChild(&item), names.size());
        names << item.text(QAccessible::Name);
    }
    EXPECT_EQ(names, (QStringList{QStringLiteral("Choose backup package"), QStringLiteral("Snapshots"),
                                  QStringLiteral("Export complete")}));
}

TEST_F(RailStepTest, exposeWhichOneIsCurrentAndWhichAreCompleted) {
    const Told notYet{.isSelected = false, .isChecked = false, .description = {}};
    const Told shown{.isSelected = true, .isChecked = false, .description = {}};
    const Told completed{.isSelected = false, .isChecked = true, .description = QStringLiteral("Completed")};
    for (const Phase phase : {Phase::chooseBackup, Phase::preparingPackage, Phase::inspecting}) {
        show(phase);
        EXPECT_EQ(told(), (std::vector<Told>{shown, notYet, notYet}));
    }
    for (const Phase phase : {Phase::snapshots, Phase::exporting}) {
        show(phase);
        EXPECT_EQ(told(), (std::vector<Told>{completed, shown, notYet}));
    }
    show(Phase::complete);
    EXPECT_EQ(told(), (std::vector<Told>{completed, completed, shown}));
}

TEST_F(RailStepTest, areSelectableAndCheckableButReadOnly) {
    show(Phase::snapshots);
    for (RailStep* const step : steps()) {
        const QAccessibleInterface& item = *QAccessible::queryAccessibleInterface(step);
        EXPECT_TRUE(item.state().selectable);
        EXPECT_TRUE(item.state().checkable);
        EXPECT_TRUE(item.state().readOnly);
        EXPECT_FALSE(item.state().focusable);
    }
}

} // namespace
