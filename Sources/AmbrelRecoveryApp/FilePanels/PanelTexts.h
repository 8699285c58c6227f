#pragma once

#include <QString>

/// The texts of the file panels that are not in the catalogue, in the fourteen languages of the interface.
namespace PanelTexts {

enum class Text {
    locations,
    home,
    computer,
    enclosingFolder,
    dateModified,
    create,
    nameIsTaken,
    folderNotCreated,
    folderCannotBeOpened,
    loading,
    cut,
    copy,
    paste,
    selectAll,
};

inline constexpr int textCount = static_cast<int>(Text::selectAll) + 1;

/// Returns the text in the language of the catalogue's texts. Any thread.
QString localized(Text text);

/// Returns the text for the language tag `localeIdentifier`, or in English if the catalogue does not have that
/// language. Any thread.
QString resolved(Text text, const QString& localeIdentifier);

} // namespace PanelTexts
