#include "AmbrelRecoveryApp/FilePanels/FolderModel.h"

#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelRecoveryApp/Controls/RecoverySymbol.h"
#include "AmbrelRecoveryApp/FilePanels/FolderWatch.h"
#include "AmbrelRecoveryApp/FilePanels/PanelItemView.h"
#include "AmbrelRecoveryApp/Foundation/FileNameText.h"
#include "AmbrelRecoveryApp/Foundation/MainThread.h"
#include "AmbrelRecoveryApp/Foundation/RecoveryAppCopy.h"

#include <QTimer>

#include <algorithm>
#include <cstddef>
#include <tuple>
#include <unordered_map>

namespace {

using Item = FolderContents::Item;

/// How long changes are collected, so that a busy folder is not read continuously.
constexpr std::chrono::milliseconds changeDelay(250);

RecoverySymbol symbolOf(Item::Kind kind) {
    switch (kind) {
    case Item::Kind::folder:
        return RecoverySymbol::folder;
    case Item::Kind::package:
        return RecoverySymbol::shippingboxFill;
    case Item::Kind::file:
        return RecoverySymbol::doc;
    }
    Q_UNREACHABLE();
}

} // namespace

FolderModel::FolderModel(QObject* parent)
    : QAbstractTableModel(parent), locale_(AmbrelStrings::currentFormattingLocale()) {}

void FolderModel::setFolder(const std::filesystem::path& folder) {
    MainThread::require();
    watch({});
    beginResetModel();
    folder_ = folder;
    contents_ = {};
    rows_.clear();
    state_ = State::loading;
    endResetModel();
    read();
}

void FolderModel::toggleHiddenItems() {
    MainThread::require();
    rearrange([this] { showsHidden_ = !showsHidden_; });
}

/// The watch starts before the folder is read, so that changes during reading are noticed.
void FolderModel::read() {
    const bool isStarted = reading_.start(
        [folder = folder_, locale = locale_](const std::stop_token& stopToken) {
            return Reading{FolderWatch::begin(folder), FolderContents::read(folder, locale, stopToken)};
        },
        [this](Reading reading) { apply(std::move(reading)); });
    if (!isStarted) {
        apply({});
    }
}

void FolderModel::apply(Reading reading) {
    const State state = reading.contents ? State::loaded : State::unreadable;
    FolderContents contents = std::move(reading.contents).value_or(FolderContents());
    if (state != state_ || contents != contents_) {
        rearrange([&] {
            state_ = state;
            contents_ = std::move(contents);
        });
    }
    if (reading.watch) {
        watch(std::move(reading.watch));
    } else if (changes_) {
        // The folder may become readable again; the last watch will report that.
        FolderWatch::clear(watch_.get());
        changes_->setEnabled(true);
    }
    emit wasRead();
}

void FolderModel::watch(UniqueDescriptor watch) {
    changes_.reset();
    watch_ = std::move(watch);
    if (watch_) {
        changes_ = std::make_unique<QSocketNotifier>(watch_.get(), QSocketNotifier::Read);
        connect(changes_.get(), &QSocketNotifier::activated, this, [this] {
            // Re-enabled after the folder has been read.
            changes_->setEnabled(false);
            QTimer::singleShot(changeDelay, changes_.get(), [this] { read(); });
        });
    }
}

/// Makes a change of what is shown, after which persistent indexes refer to the same items as before.
void FolderModel::rearrange(const std::function<void()>& change) {
    emit layoutAboutToBeChanged();
    const QModelIndexList before = persistentIndexList();
    std::vector<std::string> names;
    for (const QModelIndex& index : before) {
        names.push_back(item(index).name);
    }
    change();
    arrange();
    // Assistive technology may hold an index of every cell.
    std::unordered_map<std::string_view, int> rowsByName;
    for (int row = 0; !names.empty() && row < rowCount(); ++row) {
        rowsByName.emplace(item(index(row, Column::name)).name, row);
    }
    QModelIndexList after;
    for (std::size_t number = 0; number < names.size(); ++number) {
        const auto found = rowsByName.find(names[number]);
        const int column = before[static_cast<qsizetype>(number)].column();
        after.append(found == rowsByName.end() ? QModelIndex() : index(found->second, column));
    }
    changePersistentIndexList(before, after);
    emit layoutChanged();
}

void FolderModel::arrange() {
    rows_.clear();
    for (std::size_t index = 0; index < contents_.items.size(); ++index) {
        if (showsHidden_ || !contents_.items[index].name.starts_with('.')) {
            rows_.push_back(index);
        }
    }
    const auto key = [this](std::size_t index) {
        const Item& item = contents_.items[index];
        const std::int64_t value =
            sortColumn_ == size
                ? item.size
                : item.modified.value_or(decltype(item.modified)::value_type()).time_since_epoch().count();
        return sortColumn_ == name ? static_cast<std::int64_t>(index) : value;
    };
    const auto isFile = [this](std::size_t index) { return contents_.items[index].kind != Item::Kind::folder; };
    std::ranges::stable_sort(rows_, [&](std::size_t left, std::size_t right) {
        const bool isAscending = sortOrder_ == Qt::AscendingOrder;
        return std::tuple(isFile(left), key(isAscending ? left : right)) <
               std::tuple(isFile(right), key(isAscending ? right : left));
    });
}

const Item& FolderModel::item(const QModelIndex& index) const {
    return contents_.items.at(rows_.at(static_cast<std::size_t>(index.row())));
}

int FolderModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int FolderModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columnCountOfModel;
}

QVariant FolderModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    if (role == Qt::DisplayRole) {
        return text(item(index), index.column());
    }
    if (index.column() == name && role == PanelItemView::symbolRole) {
        return static_cast<int>(symbolOf(item(index).kind));
    }
    if (index.column() == name && role == Qt::AccessibleDescriptionRole && item(index).kind == Item::Kind::folder) {
        return AmbrelStrings::localized(AmbrelStrings::filesExportFolder());
    }
    return {};
}

QVariant FolderModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    switch (section) {
    case name:
        return AmbrelStrings::localized(AmbrelStrings::organizationName());
    case size:
        return AmbrelStrings::localized(AmbrelStrings::detailsSize());
    default:
        return RecoveryAppCopy::localized(RecoveryAppCopy::Text::dateModified);
    }
}

void FolderModel::sort(int column, Qt::SortOrder order) {
    rearrange([&] {
        sortColumn_ = column;
        sortOrder_ = order;
    });
}

QString FolderModel::text(const Item& item, int column) const {
    switch (column) {
    case name:
        return FileNameText::readable(item.name);
    case size:
        return item.kind == Item::Kind::file ? AmbrelStrings::formattedFileSize(item.size, locale_) : QString();
    default:
        return item.modified ? AmbrelStrings::formattedDateTime(*item.modified, locale_) : QString();
    }
}
