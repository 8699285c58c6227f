#pragma once

#include <QWidget>

/// Parts of the window that are not always shown.
namespace ShownPart {

/// Shows or hides `part`. A hidden part is also disabled, so that assistive technology, which still finds it, cannot
/// press anything in it.
inline void setShown(QWidget* part, bool isShown) {
    part->setEnabled(isShown);
    part->setVisible(isShown);
}

} // namespace ShownPart
