#pragma once

class QAbstractItemView;
class QKeyEvent;

/// The choice of an item by keyboard in a list in which none is selected yet.
namespace FirstChoice {

/// Where `event` is of a plain navigation key and nothing is selected in `list`, selects an item: with Home the first,
/// with End the last, with the others the current one, or the first where there is none. The toolkit by itself begins
/// after the current item, and selects nothing where there is no other. Returns whether `event` has done its work.
bool select(QAbstractItemView& list, const QKeyEvent& event);

} // namespace FirstChoice
