#include "AmbrelRecoveryApp/Controls/TextScale.h"

#include "AmbrelRecoveryApp/Foundation/MainThread.h"

#include <algorithm>

namespace {

qreal currentFactor = 1;

} // namespace

qreal TextScale::factor() {
    return currentFactor;
}

void TextScale::setFactor(qreal factor) {
    MainThread::require();
    // Written so that NaN becomes 1 too.
    currentFactor = factor > 1 ? std::min(factor, largest) : 1;
}

bool TextScale::isEnlarged() {
    return currentFactor > 1;
}

int TextScale::scaled(int size) {
    return qRound(size * currentFactor);
}
