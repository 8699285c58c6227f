#pragma once

/// The symbols of the application. Each is drawn in a file of the corresponding name in Symbols/ and fills a square.
/// The size of a symbol is the side of that square: the size given by the design or, beside a text, the size of that
/// text.
enum class RecoverySymbol {
    arrowUp,
    checkmark,
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
