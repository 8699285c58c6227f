#include "SampleBackup/SampleBackup.h"

#include "Common/Failure.h"
#include "Common/StopRequest.h"
#include "Format/PackageLayout.h"
#include "Output/Destination.h"
#include "Output/TemporarySibling.h"
#include "SampleBackup/SampleHistory.h"

#include <array>
#include <chrono>
#include <numeric>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using Time = std::chrono::system_clock::time_point;

std::int64_t daysBefore(Time now, int days) {
    using namespace std::chrono;
    return duration_cast<milliseconds>((now - hours(24 * days)).time_since_epoch()).count();
}

std::vector<std::size_t> itemsBetween(std::size_t first, std::size_t end) {
    std::vector<std::size_t> items(end - first);
    std::iota(items.begin(), items.end(), first);
    return items;
}

// The library grows, the first item is removed and restored, and a new phone writes the last snapshot. Only that
// snapshot contains the last item; it contains all others, too.
void writeLine(SampleHistory& history, std::size_t itemCount, Time now) {
    const std::size_t half = (itemCount + 1) / 2;
    const std::size_t allButLast = itemCount > 1 ? itemCount - 1 : 1;
    const std::size_t removed = half > 1 ? 1 : 0;
    const auto first = history.add(itemsBetween(0, half), std::nullopt, daysBefore(now, 120), 1);
    const auto second = history.add(itemsBetween(removed, (half + itemCount) / 2), first, daysBefore(now, 45), 1);
    const auto third = history.add(itemsBetween(0, allButLast), second, daysBefore(now, 12), 1);
    history.publish(third);
    const auto last = history.add(itemsBetween(0, itemCount), third, daysBefore(now, 1), 2);
    history.publish(last);
    history.withdraw(third);
}

// Two phones continued from the same snapshot independently.
void writeFork(SampleHistory& history, std::size_t itemCount, Time now) {
    const std::size_t half = (itemCount + 1) / 2;
    const auto first = history.add(itemsBetween(0, half), std::nullopt, daysBefore(now, 90), 1);
    const auto shared = history.add(itemsBetween(0, (half + itemCount) / 2), first, daysBefore(now, 30), 1);
    const auto oldPhone = history.add(itemsBetween(0, half), shared, daysBefore(now, 3), 1);
    const auto newPhone = history.add(itemsBetween(0, itemCount), shared, daysBefore(now, 2), 2);
    history.publish(oldPhone);
    history.publish(newPhone);
}

void require(bool succeeded) {
    if (!succeeded) {
        throw Failure(FailureReason::outputNotWritten, "the payload file cannot be changed");
    }
}

std::string payloadPath(const SampleLibrary& library) {
    const CommitRecord::Item& lastItem = library.item(library.itemCount() - 1);
    return std::string(PackageLayout::payloadFolder) + "/" + lastItem.resources.back().payload.hexadecimal();
}

void removePayload(int package, const SampleLibrary& library) {
    require(::unlinkat(package, payloadPath(library).c_str(), 0) == 0);
}

void damagePayload(int package, const SampleLibrary& library) {
    const UniqueDescriptor file(::openat(package, payloadPath(library).c_str(), O_RDWR | O_NOFOLLOW | O_CLOEXEC));
    struct stat status = {};
    require(file && ::fstat(file.get(), &status) == 0);
    std::array<std::uint8_t, 1> byte{};
    require(::pread(file.get(), byte.data(), byte.size(), status.st_size / 2) == 1);
    byte[0] ^= 1;
    require(::pwrite(file.get(), byte.data(), byte.size(), status.st_size / 2) == 1);
}

} // namespace

void SampleBackup::make(const SampleOptions& options, const SecretBytes& passphrase, const SecretBytes& recoveryKey,
                        const std::function<void()>& announce) {
    const std::vector<PictureFolder::Picture> pictures = PictureFolder::scan(options.picturesPath);
    const Destination destination(options.outputPath);
    const StopRequest stopRequest;
    TemporarySibling folder(destination);
    const bool isUnsupported = options.kind == SampleKind::unsupportedVersion;
    PackageWriter writer(folder.descriptor(), passphrase, recoveryKey,
                         options.isFast ? KeyDerivationCost::fast() : KeyDerivationCost::moderate(),
                         PackageHeader::supportedVersion + (isUnsupported ? 1 : 0));
    const SampleLibrary library(pictures, writer);
    SampleHistory history(writer, library);
    const Time now = options.now.value_or(std::chrono::system_clock::now());
    if (options.kind == SampleKind::forked) {
        writeFork(history, library.itemCount(), now);
    } else {
        writeLine(history, library.itemCount(), now);
    }
    if (options.kind == SampleKind::missingPayload) {
        removePayload(folder.descriptor(), library);
    } else if (options.kind == SampleKind::damagedPayload) {
        damagePayload(folder.descriptor(), library);
    }
    folder.publish(announce);
}
