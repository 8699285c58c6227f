#pragma once

class QAbstractItemView;
class QKeyEvent;

/// Selecting an item by keyboard in a list that has no selection yet.
namespace FirstChoice {

/// If `event` is an unmodified navigation key and nothing is selected in `list`, selects an item: Home selects the
/// first, End the last, and any other key the current item, or the first if there is none. Qt alone would start from
/// the item after the current one, and select nothing if there is no other. Returns whether an item was selected.
bool select(QAbstractItemView& list, const QKeyEvent& event);

} // namespace FirstChoice
