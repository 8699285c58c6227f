#include "AmbrelRecoveryApp/FilePanels/FolderContents.h"

#include "AmbrelRecoveryApp/Model/RecoveryChosenPath.h"

#include <QCollator>
#include <QLocale>

#include <algorithm>
#include <system_error>
#include <tuple>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using Item = FolderContents::Item;

Item itemAt(const std::filesystem::path& path) {
    Item item{.name = path.filename().native(), .modified = std::nullopt};
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) {
        return item;
    }
    if (S_ISDIR(status.st_mode)) {
        item.kind = RecoveryChosenPath::isPackageName(item.name) ? Item::Kind::package : Item::Kind::folder;
    } else if (S_ISREG(status.st_mode)) {
        item.size = status.st_size;
    }
    constexpr std::int64_t nanosecondsInMillisecond = 1'000'000;
    item.modified = std::chrono::sys_time<std::chrono::milliseconds>(std::chrono::seconds(status.st_mtim.tv_sec)) +
                    std::chrono::milliseconds(status.st_mtim.tv_nsec / nanosecondsInMillisecond);
    return item;
}

void sort(std::vector<Item>& items, const icu::Locale& locale) {
    QCollator collator(QLocale(QString::fromLatin1(locale.getName())));
    collator.setNumericMode(true);
    std::vector<std::pair<QCollatorSortKey, Item>> keyed;
    keyed.reserve(items.size());
    for (Item& item : items) {
        QCollatorSortKey key = collator.sortKey(QString::fromStdString(item.name));
        keyed.emplace_back(std::move(key), std::move(item));
    }
    std::ranges::sort(keyed, [](const auto& left, const auto& right) {
        return std::tie(left.first, left.second.name) < std::tie(right.first, right.second.name);
    });
    std::ranges::transform(keyed, items.begin(), [](auto& entry) { return std::move(entry.second); });
}

} // namespace

std::optional<FolderContents> FolderContents::read(const std::filesystem::path& folder, const icu::Locale& locale,
                                                   const std::stop_token& stopToken) {
    if (isWithinPackage(folder)) {
        return std::nullopt;
    }
    std::error_code error;
    std::filesystem::directory_iterator entry(folder, error);
    if (error) {
        return std::nullopt;
    }
    FolderContents contents;
    // An error on the way ends the iteration; what was read until then is shown.
    for (; entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        if (stopToken.stop_requested()) {
            return std::nullopt;
        }
        contents.items.push_back(itemAt(entry->path()));
    }
    contents.isWritable = faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
    sort(contents.items, locale);
    return contents;
}

bool FolderContents::isWithinPackage(const std::filesystem::path& path) {
    std::error_code error;
    const std::filesystem::path resolved = std::filesystem::weakly_canonical(path, error);
    return std::ranges::any_of(path, RecoveryChosenPath::isPackageName) ||
           std::ranges::any_of(resolved, RecoveryChosenPath::isPackageName);
}
