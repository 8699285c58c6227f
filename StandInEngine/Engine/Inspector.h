#pragma once

#include "Engine/Inspection.h"
#include "Package/PayloadEvidence.h"
#include "Package/UnlockedPackage.h"

#include <unordered_map>

/// Inspects an unlocked package: its history, every snapshot, and every payload file that a snapshot needs.
class Inspector {
public:
    /// `package` must outlive the inspector.
    explicit Inspector(const UnlockedPackage& package) : package_(package) {}

    /// Throws Failure: integrity, packageUnavailable. Missing, damaged and unreadable payload files are counted and do
    /// not cause a failure.
    Inspection inspect();

private:
    Inspection::Snapshot inspectSnapshot(const History& history, std::size_t index);
    void inspectResources(const CommitRecord& record, Inspection::Snapshot& snapshot);
    const PayloadEvidence& evidenceFor(const Identifier& payload);

    const UnlockedPackage& package_;
    std::unordered_map<Identifier, PayloadEvidence> evidence_;
};
