#include "AmbrelRecoveryApp/Controls/Motion.h"

#include "AmbrelRecoveryApp/Foundation/MainThread.h"

#include <QStyle>
#include <QWidget>

namespace {

constexpr std::chrono::milliseconds shortDuration(150);

bool isMotionReduced = false;

} // namespace

std::chrono::milliseconds Motion::duration(const QWidget& widget) {
    MainThread::require();
    const bool mayMove =
        !isMotionReduced && widget.style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, &widget) > 0;
    return mayMove ? shortDuration : std::chrono::milliseconds::zero();
}

void Motion::setReduced(bool isReduced) {
    MainThread::require();
    isMotionReduced = isReduced;
}
