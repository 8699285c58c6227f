#include "AmbrelLocalization/StringTableFile.h"

#include <QFile>

#include <cstdint>
#include <string_view>

namespace {

constexpr std::uint64_t maximumSize = 10'000'000;

} // namespace

std::shared_ptr<const StringTable> StringTableFile::current() const {
    const std::optional<FileStamp> seen = FileStamp::ofFile(path_);
    const std::lock_guard lock(mutex_);
    if (seen && stamp_ != seen) {
        read(*seen);
    }
    return table_;
}

void StringTableFile::read(const FileStamp& stamp) const {
    // A file that was just changed may change again without getting a different stamp, and one that cannot be read may
    // become readable without being changed: the process may have run out of descriptors.
    const bool isFinal = stamp.isSettled();
    stamp_.reset();
    QFile file(QFile::decodeName(path_.c_str()));
    if (stamp.size() > maximumSize || !file.open(QIODevice::ReadOnly)) {
        return;
    }
    const QByteArray bytes = file.read(static_cast<qint64>(stamp.size()));
    if (file.error() != QFileDevice::NoError) {
        return;
    }
    auto table = std::make_shared<const StringTable>(
        StringTable::decoded(std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size()))));
    if (!table_ || table->size() > 0) {
        table_ = std::move(table);
    }
    stamp_ = isFinal ? std::optional(stamp) : std::nullopt;
}
