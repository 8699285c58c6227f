#pragma once

#include "Format/CommitRecord.h"
#include "Package/PackageWriter.h"
#include "SampleBackup/PictureFolder.h"

#include <cstddef>
#include <string>
#include <vector>

/// The pictures as items of a library whose originals lie in a package. Pictures with the same name before the
/// extension, in the same folder, are the resources of one item. Every folder with pictures is an album.
class SampleLibrary {
public:
    /// Stores all pictures. Throws Failure (outputNotWritten), SampleError, Stopped.
    SampleLibrary(const std::vector<PictureFolder::Picture>& pictures, PackageWriter& writer);

    std::size_t itemCount() const { return items_.size(); }
    const CommitRecord::Item& item(std::size_t index) const { return items_[index].item; }

    /// A record of some of the items, and of the folders and albums that they are in. Its place in the history is
    /// left empty.
    CommitRecord recordOf(const std::vector<std::size_t>& indexes) const;

private:
    struct PlacedItem {
        CommitRecord::Item item;
        std::vector<std::string> folders;
    };

    std::vector<PlacedItem> items_;
};
