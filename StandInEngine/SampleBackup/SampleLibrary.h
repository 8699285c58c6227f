#pragma once

#include "Format/CommitRecord.h"
#include "Package/PackageWriter.h"
#include "SampleBackup/PictureFolder.h"

#include <cstddef>
#include <string>
#include <vector>

/// The pictures as items of a library whose originals are stored in a package. Pictures in the same folder whose names
/// differ only in the extension are the resources of one item. Every folder with pictures is an album.
class SampleLibrary {
public:
    /// Stores all pictures. Throws Failure (outputNotWritten), SampleError, Stopped.
    SampleLibrary(const std::vector<PictureFolder::Picture>& pictures, PackageWriter& writer);

    std::size_t itemCount() const { return items_.size(); }
    const CommitRecord::Item& item(std::size_t index) const { return items_[index].item; }

    /// Returns a record of the given items, with their folders and albums. Its place in the history is not filled in.
    CommitRecord recordOf(const std::vector<std::size_t>& indexes) const;

private:
    struct PlacedItem {
        CommitRecord::Item item;
        std::vector<std::string> folders;
    };

    std::vector<PlacedItem> items_;
};
