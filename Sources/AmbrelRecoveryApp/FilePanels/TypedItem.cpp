#include "AmbrelRecoveryApp/FilePanels/TypedItem.h"

#include "AmbrelRecoveryApp/FilePanels/FolderContents.h"

#include <QDir>

TypedItem TypedItem::find(const QString& text, const std::filesystem::path& folder) {
    const std::filesystem::path typed = pathOf(text, folder);
    // This ends with a separator if the typed path is written as a folder.
    const std::filesystem::path normal = typed.lexically_normal();
    std::error_code error;
    if (!normal.has_filename() && std::filesystem::is_directory(normal, error) &&
        !FolderContents::isWithinPackage(normal)) {
        return {.path = normal.parent_path(), .isFolderToEnter = true};
    }
    return {.path = typed.has_filename() ? typed : typed.parent_path(), .isFolderToEnter = false};
}

/// "~" is an ordinary name if an item of that name exists.
std::filesystem::path TypedItem::pathOf(const QString& text, const std::filesystem::path& folder) {
    std::filesystem::path path = folder / text.toStdString();
    const bool isFromHome = text == u"~" || text.startsWith(u"~/");
    std::error_code error;
    return isFromHome && !std::filesystem::exists(path, error)
               ? std::filesystem::path((QDir::homePath() + text.sliced(1)).toStdString())
               : path;
}
