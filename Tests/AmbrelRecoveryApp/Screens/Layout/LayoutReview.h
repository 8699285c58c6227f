#pragma once

#include <QWidget>

#include <string>
#include <vector>

/// Looks for what a person would see at a glance: texts that are cut off, shortened with an ellipsis, torn within a
/// word or painted over one another, and content that would have to be scrolled sideways.
namespace LayoutReview {

/// One sentence for each text in sight below `root` that is not shown as it should be; none where all is well. A widget
/// that shows a text in a way that the review does not know is a finding, too. What lies further down in a scroll area
/// is in sight. `root` is shown and laid out.
std::vector<std::string> findings(const QWidget& root);

} // namespace LayoutReview
