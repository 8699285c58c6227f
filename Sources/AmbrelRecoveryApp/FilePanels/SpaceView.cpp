#include "AmbrelRecoveryApp/FilePanels/SpaceView.h"

#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/TextLabel.h"
#include "AmbrelRecoveryApp/FilePanels/TypedItem.h"

#include <QVBoxLayout>

#include <algorithm>
#include <limits>

using namespace AmbrelStrings;

namespace {

constexpr int textSize = 13;
constexpr int spacing = 2;

/// Returns std::nullopt if the place does not exist or its free space is unknown.
std::optional<std::uint64_t> availableByteCount(const std::filesystem::path& folder, const QString& way) {
    std::error_code error;
    const std::filesystem::space_info space = std::filesystem::space(TypedItem::pathOf(way, folder), error);
    return error || space.capacity == 0 ? std::nullopt : std::optional<std::uint64_t>(space.available);
}

QString labeled(const LocalizedStringResource& label, std::uint64_t byteCount) {
    constexpr std::uint64_t largest = std::numeric_limits<std::int64_t>::max();
    const auto shown = static_cast<std::int64_t>(std::min(byteCount, largest));
    return localized(label) + QStringLiteral(": ") + formattedFileSize(shown, currentFormattingLocale());
}

} // namespace

SpaceView::SpaceView(std::optional<std::uint64_t> requiredByteCount, QWidget* parent)
    : QWidget(parent), requiredByteCount_(requiredByteCount),
      required_(new TextLabel(recoveryFont(textSize, QFont::Normal), RecoveryPalette::secondary(), this)),
      available_(new TextLabel(recoveryFont(textSize, QFont::Normal), RecoveryPalette::secondary(), this)) {
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(spacing);
    layout->addWidget(required_);
    layout->addWidget(available_);
    required_->setVisible(requiredByteCount_.has_value());
    if (requiredByteCount_) {
        required_->setText(labeled(filesExportRequiredSpace(), *requiredByteCount_));
    }
    // The hidden line keeps its space, so that nothing moves when the size arrives.
    QSizePolicy policy = available_->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    available_->setSizePolicy(policy);
    available_->setText(labeled(filesExportAvailableSpace(), 0));
    available_->hide();
}

void SpaceView::setPlace(const std::filesystem::path& folder, const QString& typed) {
    const QString way = typed.first(typed.lastIndexOf(u'/') + 1);
    if (folder != folder_ || way != way_) {
        folder_ = folder;
        way_ = way;
        setAvailable(std::nullopt);
        ask();
    }
}

void SpaceView::refresh() {
    if (!asking_.isRunning()) {
        ask();
    }
}

void SpaceView::ask() {
    asking_.start([folder = folder_, way = way_] { return availableByteCount(folder, way); },
                  [this](std::optional<std::uint64_t> byteCount) { setAvailable(byteCount); });
}

void SpaceView::setAvailable(std::optional<std::uint64_t> byteCount) {
    available_->setVisible(byteCount.has_value());
    if (byteCount) {
        const bool isEnough = *byteCount >= requiredByteCount_.value_or(0);
        available_->setText(labeled(filesExportAvailableSpace(), *byteCount));
        available_->setColor(isEnough ? RecoveryPalette::secondary() : RecoveryPalette::warning());
    }
}
