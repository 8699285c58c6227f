#include "Engine/Exporter.h"

#include "Common/DescriptorIO.h"
#include "Common/StopRequest.h"
#include "Output/OutputFailure.h"

#include <array>
#include <cerrno>
#include <ctime>
#include <optional>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

ExportTree::FolderPath pathOfFolder(const CommitRecord& snapshot, std::optional<std::uint32_t> folder) {
    ExportTree::FolderPath reversed;
    for (; folder; folder = snapshot.folders[*folder].parent) {
        reversed.push_back(snapshot.folders[*folder].name);
    }
    return {reversed.rbegin(), reversed.rend()};
}

ExportTree::FolderPath pathOfAlbum(const CommitRecord& snapshot, const CommitRecord::Album& album) {
    ExportTree::FolderPath path = pathOfFolder(snapshot, album.folder);
    path.push_back(album.name);
    return path;
}

std::vector<std::optional<std::uint32_t>> firstAlbums(const CommitRecord& snapshot) {
    std::vector<std::optional<std::uint32_t>> albums(snapshot.items.size());
    for (const CommitRecord::Membership& membership : snapshot.memberships) {
        if (!albums[membership.item]) {
            albums[membership.item] = membership.album;
        }
    }
    return albums;
}

// Failures are ignored: the picture matters more than its exact time.
void restoreModificationTime(int file, const CommitRecord::Resource& resource) {
    const std::array<timespec, 2> times = {
        timespec{0, UTIME_OMIT},
        timespec{static_cast<std::time_t>(resource.modifiedSeconds), static_cast<long>(resource.modifiedNanoseconds)}};
    static_cast<void>(::futimens(file, times.data()));
}

// Some file systems report a lack of space only here. Each file is synchronized separately, so that a stop never has to
// wait for gigabytes to reach a slow disk. EINVAL means that the file system does not support it.
void finish(UniqueDescriptor file) {
    const bool isOnDisk = ::fsync(file.get()) == 0 || errno == EINVAL;
    if (::close(file.release()) != 0 || !isOnDisk) {
        throw OutputFailure::whileWriting();
    }
}

} // namespace

ExportReport Exporter::write(const CommitRecord& snapshot) {
    makeFolders(snapshot);
    const std::vector<std::optional<std::uint32_t>> albums = firstAlbums(snapshot);
    ExportReport report;
    for (std::size_t index = 0; index < snapshot.items.size(); ++index) {
        const ExportTree::FolderPath folder =
            albums[index] ? pathOfAlbum(snapshot, snapshot.albums[*albums[index]]) : ExportTree::FolderPath();
        for (const CommitRecord::Resource& resource : snapshot.items[index].resources) {
            writeResource(resource, folder);
            ++report.resourceCount;
        }
        ++report.itemCount;
    }
    return report;
}

void Exporter::makeFolders(const CommitRecord& snapshot) {
    for (std::uint32_t folder = 0; folder < snapshot.folders.size(); ++folder) {
        StopRequest::throwIfRequested();
        tree_.makeFolder(pathOfFolder(snapshot, folder));
    }
    for (const CommitRecord::Album& album : snapshot.albums) {
        StopRequest::throwIfRequested();
        tree_.makeFolder(pathOfAlbum(snapshot, album));
    }
}

void Exporter::writeResource(const CommitRecord::Resource& resource, const ExportTree::FolderPath& folder) {
    StopRequest::throwIfRequested();
    UniqueDescriptor file = tree_.createFile(folder, resource.fileName);
    const PayloadEvidence evidence = payloads_.read(resource.payload, [&](ByteView chunk) {
        StopRequest::throwIfRequested();
        if (!DescriptorIO::writeFully(file.get(), chunk)) {
            throw OutputFailure::whileWriting();
        }
    });
    if (evidence.state == PayloadState::unreadable) {
        throw Failure(FailureReason::packageUnavailable, "a payload file cannot be read");
    }
    if (evidence.state == PayloadState::missing) {
        throw Failure(FailureReason::integrity, "a payload file is missing");
    }
    if (evidence.state == PayloadState::mismatched || evidence.plaintextByteCount != resource.byteCount) {
        throw Failure(FailureReason::integrity, "a payload file does not match");
    }
    restoreModificationTime(file.get(), resource);
    finish(std::move(file));
}
