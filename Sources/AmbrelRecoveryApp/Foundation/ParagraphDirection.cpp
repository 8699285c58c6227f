#include "AmbrelRecoveryApp/Foundation/ParagraphDirection.h"

#include <algorithm>

Qt::LayoutDirection paragraphDirection(const QString& text, Qt::LayoutDirection interfaceDirection) {
    const bool hasRightToLeft = std::ranges::any_of(text, [](QChar character) {
        return character.direction() == QChar::DirR || character.direction() == QChar::DirAL;
    });
    return hasRightToLeft ? interfaceDirection : Qt::LeftToRight;
}
