#pragma once

class QWidget;

/// Parts of the window that are there only at times.
namespace ShownPart {

/// Shows or hides `part`. What is hidden is disabled too, so that assistive technology, which still finds it, cannot
/// press anything in it.
void setShown(QWidget* part, bool isShown);

} // namespace ShownPart
