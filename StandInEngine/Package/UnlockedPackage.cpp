#include "Package/UnlockedPackage.h"

#include "Common/Failure.h"
#include "Common/KeyedHash.h"
#include "Format/PackageLayout.h"
#include "Format/SealedRecord.h"

#include <algorithm>
#include <utility>

UnlockedPackage::UnlockedPackage(const PackageDirectory& directory, PackageKeys keys)
    : directory_(directory), keys_(std::move(keys)) {}

History UnlockedPackage::readHistory() const {
    std::vector<HistoryCommit> commits;
    std::size_t totalByteCount = 0;
    for (const Identifier& identifier :
         directory_.list(PackageLayout::commitFolder, PackageLayout::maximumCommitCount)) {
        const Bytes plaintext = readCommitPlaintext(identifier);
        totalByteCount += plaintext.size();
        if (totalByteCount > PackageLayout::maximumTotalCommitByteCount) {
            throw Failure(FailureReason::integrity, "the records are too large");
        }
        CommitRecord record = CommitRecord::decode(plaintext);
        commits.push_back({identifier, std::move(record.parents), record.createdAtMilliseconds, record.writerEpoch,
                           record.generation});
    }
    const std::vector<Identifier> heads = directory_.list(PackageLayout::headFolder, PackageLayout::maximumHeadCount);
    for (const Identifier& head : heads) {
        verifyHead(head);
    }
    return History(std::move(commits), heads);
}

CommitRecord UnlockedPackage::readCommit(const Identifier& commit) const {
    return CommitRecord::decode(readCommitPlaintext(commit));
}

Bytes UnlockedPackage::readCommitPlaintext(const Identifier& commit) const {
    const PackageFile file = directory_.openFile(PackageLayout::commitFolder, commit);
    const Bytes sealed = PackageDirectory::contentOf(file, PackageLayout::maximumCommitByteCount);
    Bytes plaintext = SealedRecord::open(keys_, RecordKind::commit, commit, sealed);
    if (KeyedHash::of(keys_.commitNaming.bytes(), plaintext) != commit) {
        throw Failure(FailureReason::integrity, "a commit does not match its name");
    }
    return plaintext;
}

void UnlockedPackage::verifyHead(const Identifier& head) const {
    const PackageFile file = directory_.openFile(PackageLayout::headFolder, head);
    const Bytes sealed = PackageDirectory::contentOf(file, PackageLayout::maximumHeadByteCount);
    if (!std::ranges::equal(SealedRecord::open(keys_, RecordKind::head, head, sealed), head.bytes)) {
        throw Failure(FailureReason::integrity, "a head does not match its name");
    }
}
