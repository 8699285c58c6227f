#pragma once

#include "ShownText.h"

#include <vector>

/// The texts that a window shows, each measured with its own font against the place that it has.
namespace ShownTexts {

/// Every text in sight in the widgets below `root`.
std::vector<ShownText> of(const QWidget& root);

} // namespace ShownTexts
