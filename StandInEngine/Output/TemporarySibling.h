#pragma once

#include "Common/UniqueDescriptor.h"
#include "Output/Destination.h"

#include <functional>
#include <string>

/// A folder with a random hidden name next to a destination. It becomes the destination when it is published; otherwise
/// it is removed with its contents. It is locked while in use: an unlocked one was left by a process that was killed,
/// and is removed by the next export to the same parent folder.
class TemporarySibling {
public:
    /// Removes folders that killed exports of this user have left next to the destination, then creates this one.
    /// `destination` must outlive it. Throws Failure: destinationUnavailable, outputNotWritten.
    explicit TemporarySibling(const Destination& destination);
    ~TemporarySibling();
    TemporarySibling(const TemporarySibling&) = delete;
    TemporarySibling& operator=(const TemporarySibling&) = delete;

    /// The open folder.
    int descriptor() const { return folder_.get(); }

    /// Flushes the folder's entries to disk, calls `announce`, then gives the folder its final name without replacing
    /// anything. Throws Failure: destinationExists, destinationUnavailable, outputNotWritten; Stopped if a stop was
    /// requested before the last step; whatever `announce` throws. Nothing is undone after it returns.
    void publish(const std::function<void()>& announce);

private:
    void make();
    bool hold();

    const Destination& destination_;
    std::string name_;
    UniqueDescriptor folder_;
    bool isPublished_ = false;
};
