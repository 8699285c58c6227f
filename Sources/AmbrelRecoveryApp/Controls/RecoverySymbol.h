#pragma once

/// The symbols of the application. Each is drawn in a file of the same name in Symbols/.
enum class RecoverySymbol {
    arrowUp,
    checkmark,
    checkmarkCircle,
    checkmarkCircleFill,
    checkmarkShield,
    chevronLeft,
    chevronRight,
    circle,
    doc,
    exclamationmarkTriangleFill,
    externaldrive,
    folder,
    house,
    personCropCircleBadgeXmark,
    photoStackFill,
    shippingboxFill,
    squareAndArrowDown,
    xmark,
};
