#pragma once

#include "AmbrelPlatform/UniqueDescriptor.h"
#include "AmbrelRecoveryApp/FilePanels/FolderContents.h"
#include "AmbrelRecoveryApp/FilePanels/LatestTask.h"

#include <QAbstractTableModel>
#include <QSocketNotifier>

#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

/// The contents of one folder, with names, sizes and dates in the interface language. The folder is read on a
/// background thread, and again when it changes, so an unresponsive folder blocks nothing. An item keeps its persistent
/// indexes as long as it is shown. Main thread.
class FolderModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { name, size, date, columnCountOfModel };
    enum class State { loading, loaded, unreadable };

    explicit FolderModel(QObject* parent = nullptr);

    /// Switches to another folder, given by its absolute path. The model is empty until `wasRead`.
    void setFolder(const std::filesystem::path& folder);
    const std::filesystem::path& folder() const { return folder_; }
    State state() const { return state_; }
    bool isFolderWritable() const { return contents_.isWritable; }

    /// Starts or stops showing hidden items; initially they are not shown.
    void toggleHiddenItems();

    /// The item of a valid index, and its path.
    const FolderContents::Item& item(const QModelIndex& index) const;
    std::filesystem::path path(const QModelIndex& index) const { return folder_ / item(index).name; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    void sort(int column, Qt::SortOrder order) override;

signals:
    /// The folder has been read; `state()` gives the result.
    void wasRead();

private:
    /// The result of reading, and a watch that was started before.
    struct Reading {
        UniqueDescriptor watch;
        std::optional<FolderContents> contents;
    };

    void read();
    void apply(Reading reading);
    void watch(UniqueDescriptor watch);
    void rearrange(const std::function<void()>& change);
    void arrange();
    QString text(const FolderContents::Item& item, int column) const;

    const icu::Locale locale_;
    std::filesystem::path folder_;
    State state_ = State::loaded;
    bool showsHidden_ = false;
    int sortColumn_ = name;
    Qt::SortOrder sortOrder_ = Qt::AscendingOrder;
    FolderContents contents_;
    /// The shown items in row order, as indexes into `contents_`.
    std::vector<std::size_t> rows_;
    LatestTask reading_;
    UniqueDescriptor watch_;
    std::unique_ptr<QSocketNotifier> changes_;
};
