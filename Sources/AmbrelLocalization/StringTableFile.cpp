#include "AmbrelLocalization/StringTableFile.h"

#include "AmbrelPlatform/UniqueDescriptor.h"

#include <QFile>

#include <cstdint>
#include <string_view>

#include <fcntl.h>

namespace {

constexpr std::uint64_t maximumSize = 10'000'000;

} // namespace

std::shared_ptr<const StringTable> StringTableFile::current() const {
    const std::optional<FileStamp> seen = FileStamp::ofFile(path_);
    const std::lock_guard lock(mutex_);
    if (seen && stamp_ != seen) {
        read();
    }
    return table_;
}

void StringTableFile::read() const {
    // A file that cannot be read may become readable without being changed: the process may have run out of
    // descriptors.
    stamp_.reset();
    // The path may lead to something else by now, even to a pipe, which must not block.
    const UniqueDescriptor descriptor(::open(path_.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    const std::optional<FileStamp> stamp = FileStamp::ofDescriptor(descriptor.get());
    QFile file;
    if (!stamp || stamp->size() > maximumSize || !file.open(descriptor.get(), QIODevice::ReadOnly)) {
        return;
    }
    // A file that was just changed may change again without getting a different stamp.
    const bool isFinal = stamp->isSettled();
    const QByteArray bytes = file.read(static_cast<qint64>(stamp->size()));
    if (file.error() != QFileDevice::NoError) {
        return;
    }
    auto table = std::make_shared<const StringTable>(
        StringTable::decoded(std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size()))));
    if (!table_ || table->size() > 0) {
        table_ = std::move(table);
    }
    stamp_ = isFinal ? stamp : std::nullopt;
}
