#pragma once

#include "AmbrelRecoveryApp/FilePanels/LatestTask.h"

#include <QWidget>

#include <cstdint>
#include <filesystem>
#include <optional>

class TextLabel;

/// What an export needs and what the chosen place has free, each on a line of its own where it is known, and the latter
/// in the colour of a warning where it is not enough. Nothing waits for a place that does not answer. Main thread.
class SpaceView final : public QWidget {
    Q_OBJECT

public:
    explicit SpaceView(std::optional<std::uint64_t> requiredByteCount, QWidget* parent = nullptr);

    /// Shows another place: the folder in which the item lies that `typed`, as a name field has it, names in `folder`.
    void setPlace(const std::filesystem::path& folder, const QString& typed);
    /// Asks the place again.
    void refresh();

private:
    void ask();
    void setAvailable(std::optional<std::uint64_t> byteCount);

    const std::optional<std::uint64_t> requiredByteCount_;
    std::filesystem::path folder_;
    /// What is typed before the item's own name.
    QString way_;
    LatestTask asking_;
    TextLabel* const required_;
    TextLabel* const available_;
};
