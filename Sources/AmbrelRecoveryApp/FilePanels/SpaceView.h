#pragma once

#include "AmbrelRecoveryApp/FilePanels/LatestTask.h"

#include <QWidget>

#include <cstdint>
#include <filesystem>
#include <optional>

class TextLabel;

/// Shows the space that an export needs and the free space at the chosen place, each on its own line if known. The free
/// space is in the warning color if it is not enough. A place that does not respond blocks nothing. Main thread.
class SpaceView final : public QWidget {
    Q_OBJECT

public:
    explicit SpaceView(std::optional<std::uint64_t> requiredByteCount, QWidget* parent = nullptr);

    /// Sets the place: the folder of the item that `typed`, the text of a name field, names in `folder`.
    void setPlace(const std::filesystem::path& folder, const QString& typed);
    /// Queries the free space again.
    void refresh();

private:
    void ask();
    void setAvailable(std::optional<std::uint64_t> byteCount);

    const std::optional<std::uint64_t> requiredByteCount_;
    std::filesystem::path folder_;
    /// The typed text without the item's own name.
    QString way_;
    LatestTask asking_;
    TextLabel* const required_;
    TextLabel* const available_;
};
