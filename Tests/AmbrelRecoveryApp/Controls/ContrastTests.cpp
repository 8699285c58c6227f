#include "AmbrelRecoveryApp/Controls/PrimaryRecoveryButtonStyle.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/SecondaryRecoveryButtonStyle.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

using namespace RecoveryPalette;

/// The share of light that a color sends back, as the Web Content Accessibility Guidelines have it.
double luminance(const QColor& color) {
    const auto linear = [](double value) {
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

/// From 1 to 21, of `color` where it lies on the opaque `ground`.
double contrast(const QColor& color, const QColor& ground) {
    const double one = luminance(blended(color, ground));
    const double other = luminance(ground);
    return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

QColor tinted(const QColor& color, double opacity, const QColor& ground) {
    return blended(withOpacity(color, opacity), ground);
}

/// The background where the glow is brightest.
QColor glow() {
    return tinted(copper(), 0.12, background());
}

struct Pair {
    const char* name;
    QColor color;
    QColor ground;
};

std::vector<Pair> texts() {
    const QColor field = blended(input(), panel());
    const QColor notice = tinted(warning(), 0.08, glow());
    return {
        {"header: badge", copper(), tinted(copper(), 0.12 * 0.25, background())},
        {"header: title", primary(), glow()},
        {"header: body", secondary(), glow()},
        {"rail: brand, active step", primary(), rail()},
        {"rail: product, other steps, badges", muted(), rail()},
        {"rail: number of a lit step", primary(), tinted(copper(), 0.18, rail())},
        {"card: title", primary(), panel()},
        {"card: body", secondary(), panel()},
        {"card: kind, label, facts of a row", muted(), panel()},
        {"row: complete", success(), panel()},
        {"row: incomplete", warning(), panel()},
        {"chosen row: date", primary(), chosenRow()},
        {"chosen row: facts", muted(), chosenRow()},
        {"chosen row: complete", success(), chosenRow()},
        {"chosen row: incomplete", warning(), chosenRow()},
        {"notice: title", primary(), notice},
        {"notice: body", secondary(), notice},
        {"footnote", muted(), background()},
        {"segment", secondary(), field},
        {"chosen segment", primary(), blended(highlight(), field)},
        {"field: prompt", muted(), field},
        {"field: text, path", primary(), field},
        {"field: selected text", onCopper(), copper()},
        {"progress, on the window", primary(), glow()},
        {"alert: title", primary(), alert()},
        {"alert: body", secondary(), alert()},
        {"file panel: names", primary(), background()},
        {"file panel: headings", muted(), background()},
        {"file panel: selected row", secondary(), blended(chosenItem(), background())},
        {"file panel: places", secondary(), blended(chosenItem(), rail())},
        {"file panel: warning", warning(), rail()},
    };
}

std::vector<Pair> labels(const QColor& ground) {
    namespace Primary = PrimaryRecoveryButtonStyle;
    namespace Secondary = SecondaryRecoveryButtonStyle;
    std::vector<Pair> pairs;
    for (const bool isPressed : {false, true}) {
        pairs.push_back({"primary button", Primary::label(isPressed), blended(Primary::fill(isPressed), ground)});
    }
    const QColor raisedGround = blended(Secondary::fill(), ground);
    pairs.push_back({"secondary button", Secondary::label(), raisedGround});
    pairs.push_back({"pressed secondary button", withOpacity(Secondary::label(), Secondary::pressedOpacity),
                     tinted(Secondary::fill(), Secondary::pressedOpacity, ground)});
    return pairs;
}

class ContrastTest : public testing::Test {
protected:
    ~ContrastTest() override { setContrastIncreased(false); }
};

} // namespace

TEST_F(ContrastTest, isMeasuredAsTheGuidelinesDefineIt) {
    EXPECT_NEAR(contrast(Qt::white, Qt::black), 21, 1e-6);
    EXPECT_NEAR(contrast(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.005);
    EXPECT_NEAR(contrast(Qt::white, copper()), 3.80, 0.01);
}

TEST_F(ContrastTest, everyTextStandsOutFromItsBackground) {
    constexpr double leastOfTexts = 4.5;
    for (const Pair& pair : texts()) {
        EXPECT_GE(contrast(pair.color, pair.ground), leastOfTexts) << pair.name;
    }
    for (const QColor& ground : {background(), rail(), panel(), alert()}) {
        for (const Pair& pair : labels(ground)) {
            EXPECT_GE(contrast(pair.color, pair.ground), leastOfTexts)
                << pair.name << " on " << ground.name().toStdString();
        }
    }
}

TEST_F(ContrastTest, everyBorderStandsOutIfTheDesktopWantsIt) {
    constexpr double leastOfBorders = 3;
    const std::vector<QColor> grounds{background(),
                                      glow(),
                                      rail(),
                                      panel(),
                                      alert(),
                                      blended(input(), panel()),
                                      blended(raised(), panel()),
                                      blended(highlight(), blended(input(), panel()))};
    EXPECT_LT(contrast(line(), panel()), leastOfBorders);
    EXPECT_EQ(outline().alpha(), 0);
    setContrastIncreased(true);
    for (const QColor& ground : grounds) {
        for (const QColor& border : {line(), outline(), scrollBar(false)}) {
            EXPECT_GE(contrast(border, ground), leastOfBorders) << ground.name().toStdString();
        }
    }
}

TEST_F(ContrastTest, theMarksOfControlsAlwaysStandOut) {
    constexpr double leastOfMarks = 3;
    for (const QColor& ground : {background(), rail(), panel(), alert(), blended(input(), panel())}) {
        EXPECT_GE(contrast(copper(), ground), leastOfMarks) << ground.name().toStdString();
    }
    EXPECT_GE(contrast(muted(), panel()), leastOfMarks);
    EXPECT_GE(contrast(copper(), tinted(copper(), 0.18, rail())), leastOfMarks);
    EXPECT_GE(contrast(copper(), blended(chosenItem(), background())), leastOfMarks);
}
