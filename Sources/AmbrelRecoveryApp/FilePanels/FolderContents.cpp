#include "AmbrelRecoveryApp/FilePanels/FolderContents.h"

#include "AmbrelRecoveryApp/Model/RecoveryChosenPath.h"

#include <unicode/coll.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <numeric>
#include <system_error>
#include <tuple>

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

/// Collation keys of names: comparing two of them costs no more than comparing bytes.
class NameOrder {
public:
    explicit NameOrder(const icu::Locale& locale) {
        UErrorCode status = U_ZERO_ERROR;
        collator_.reset(icu::Collator::createInstance(locale, status));
        if (U_FAILURE(status)) {
            collator_.reset();
            return;
        }
        collator_->setAttribute(UCOL_NUMERIC_COLLATION, UCOL_ON, status);
    }

    std::string key(const std::string& name) const {
        if (!collator_) {
            return name;
        }
        const icu::UnicodeString text = icu::UnicodeString::fromUTF8(name);
        std::string key(static_cast<std::size_t>(collator_->getSortKey(text, nullptr, 0)), '\0');
        collator_->getSortKey(text, reinterpret_cast<std::uint8_t*>(key.data()), static_cast<std::int32_t>(key.size()));
        return key;
    }

private:
    std::unique_ptr<icu::Collator> collator_;
};

void sort(std::vector<Item>& items, const icu::Locale& locale) {
    struct Keyed {
        bool isFolder;
        std::string key;
        Item item;
    };
    const NameOrder order(locale);
    std::vector<Keyed> keyed;
    keyed.reserve(items.size());
    for (Item& item : items) {
        std::string key = order.key(item.name);
        keyed.push_back({item.kind == Item::Kind::folder, std::move(key), std::move(item)});
    }
    std::ranges::sort(keyed, [](const Keyed& left, const Keyed& right) {
        return std::tie(right.isFolder, left.key, left.item.name) < std::tie(left.isFolder, right.key, right.item.name);
    });
    std::ranges::transform(keyed, items.begin(), [](Keyed& entry) { return std::move(entry.item); });
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
