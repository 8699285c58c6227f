#pragma once

/// The symbols of the application. Each is drawn in a file of the same name in Symbols/.
enum class RecoverySymbol {
    checkmark,
    checkmarkCircle,
    checkmarkCircleFill,
    checkmarkShield,
    circle,
    exclamationmarkTriangleFill,
    folder,
    personCropCircleBadgeXmark,
    photoStackFill,
    shippingboxFill,
    squareAndArrowDown,
    xmark,
};
