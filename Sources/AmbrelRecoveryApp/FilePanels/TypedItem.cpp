#include "AmbrelRecoveryApp/FilePanels/TypedItem.h"

#include "AmbrelRecoveryApp/FilePanels/FolderContents.h"
#include "AmbrelRecoveryApp/FilePanels/PanelPlaces.h"

namespace {

std::filesystem::path withoutTrailingSeparators(std::string path) {
    while (path.size() > 1 && path.ends_with('/')) {
        path.pop_back();
    }
    return path;
}

bool isWrittenAsFolder(const std::string& path) {
    return path.ends_with('/') || path.ends_with("/.") || path.ends_with("/..");
}

bool isFolderToEnter(const std::filesystem::path& path) {
    std::error_code error;
    return std::filesystem::is_directory(path, error) && !FolderContents::isWithinPackage(path);
}

/// "~" is an ordinary name if an item of that name exists.
std::filesystem::path pathOf(const QString& text, const std::filesystem::path& folder) {
    std::filesystem::path path = folder / text.toStdString();
    const bool isFromHome = text == u"~" || text.startsWith(u"~/");
    std::error_code error;
    return isFromHome && !std::filesystem::exists(path, error)
               ? std::filesystem::path(PanelPlaces::home().path.native() + text.sliced(1).toStdString())
               : path;
}

} // namespace

std::optional<TypedItem> TypedItem::find(const QString& text, const std::filesystem::path& folder) {
    if (text.isEmpty() || text.contains(QChar::Null)) {
        return std::nullopt;
    }
    const std::filesystem::path path = pathOf(text, folder);
    const std::filesystem::path entered = withoutTrailingSeparators(path.lexically_normal());
    if (isWrittenAsFolder(path) && ::isFolderToEnter(entered)) {
        return TypedItem{.path = entered, .isFolderToEnter = true};
    }
    return TypedItem{.path = withoutTrailingSeparators(path), .isFolderToEnter = false};
}
