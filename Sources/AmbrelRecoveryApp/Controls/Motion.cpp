#include "AmbrelRecoveryApp/Controls/Motion.h"

#include <QStyle>
#include <QWidget>

namespace {

constexpr std::chrono::milliseconds shortDuration(150);

} // namespace

std::chrono::milliseconds Motion::duration(const QWidget& widget) {
    // A style of a desktop that wants no motion gives its animations no time.
    const bool mayMove = widget.style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, &widget) > 0;
    return mayMove ? shortDuration : std::chrono::milliseconds::zero();
}
