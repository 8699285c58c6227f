#pragma once

#include <QString>

/// The words of the file panels that are not in the catalogue, in the fourteen languages of the interface.
namespace PanelTexts {

enum class Text {
    locations,
    home,
    desktop,
    documents,
    downloads,
    music,
    pictures,
    videos,
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

/// The text in the language in which the catalogue's texts are shown. Any thread.
QString localized(Text text);

/// The text in the language of this tag, one of the catalogue's; English where it is none of them. Any thread.
QString resolved(Text text, const QString& localeIdentifier);

} // namespace PanelTexts
