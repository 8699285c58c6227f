#pragma once

#include "Common/UniqueDescriptor.h"
#include "Output/Destination.h"

#include <functional>
#include <string>

/// A folder with a hidden random name beside a destination. It becomes the destination when it is published, and
/// disappears with all its contents when it is not. It is locked meanwhile: one that nobody holds was left by a process
/// that was killed, and is removed by the next export beside it.
class TemporarySibling {
public:
    /// Removes what killed exports of this user have left beside the destination, and makes the folder. `destination`
    /// must outlive it. Throws Failure: destinationUnavailable, outputNotWritten.
    explicit TemporarySibling(const Destination& destination);
    ~TemporarySibling();
    TemporarySibling(const TemporarySibling&) = delete;
    TemporarySibling& operator=(const TemporarySibling&) = delete;

    /// The open folder.
    int descriptor() const { return folder_.get(); }

    /// Makes sure that the folder's own entries are on the disk, calls `announce`, then gives the folder its final name
    /// without ever replacing anything. Throws Failure: destinationExists, destinationUnavailable, outputNotWritten;
    /// Stopped when a stop was asked for before the last step; whatever `announce` throws. After it, nothing is undone
    /// any more.
    void publish(const std::function<void()>& announce);

private:
    void make();
    bool hold();

    const Destination& destination_;
    std::string name_;
    UniqueDescriptor folder_;
    bool isPublished_ = false;
};
