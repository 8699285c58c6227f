#include "Engine/Engine.h"

#include "Common/Failure.h"
#include "Common/StopRequest.h"
#include "Engine/Exporter.h"
#include "Engine/InspectionDocument.h"
#include "Engine/Inspector.h"
#include "Output/Destination.h"
#include "Output/TemporarySibling.h"
#include "Package/LockedPackage.h"

#include <optional>

namespace {

CommitRecord readSnapshot(const UnlockedPackage& package, std::string_view selectionCode) {
    const History history = package.readHistory();
    const std::optional<std::size_t> index = history.find(selectionCode);
    if (!index) {
        throw Failure(FailureReason::snapshotUnknown);
    }
    return package.readCommit(history.commits()[*index].identifier);
}

} // namespace

void Engine::inspect(const CommandLine& line, const Credential& credential, const Print& print) {
    const LockedPackage locked(line.packagePath);
    const UnlockedPackage package = locked.unlock(credential);
    Inspection inspection = Inspector(package).inspect();
    inspection.formatVersion = locked.formatVersion();
    inspection.unlockedFactor = credential.factor;
    print(InspectionDocument::write(inspection));
}

void Engine::exportSnapshot(const CommandLine& line, const Credential& credential, const Print& print) {
    const LockedPackage locked(line.packagePath);
    // Checked before the expensive key derivation, to fail early.
    const Destination destination(line.destinationPath);
    destination.requireOutside(locked.directory().descriptor());
    const UnlockedPackage package = locked.unlock(credential);
    const CommitRecord snapshot = readSnapshot(package, line.snapshotCode);
    // Before this point there is nothing to undo, and a signal may end the program immediately.
    StopRequest::record();
    TemporarySibling folder(destination);
    const PayloadReader payloads = package.payloads();
    ExportReport report = Exporter(payloads, folder.descriptor()).write(snapshot);
    report.selectedSnapshotCode = line.snapshotCode;
    folder.publish([&] { print(report.document()); });
}
