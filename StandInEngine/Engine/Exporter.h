#pragma once

#include "Engine/ExportReport.h"
#include "Format/CommitRecord.h"
#include "Output/ExportTree.h"
#include "Package/PayloadReader.h"

/// Writes the originals of one snapshot into a folder.
class Exporter {
public:
    /// `payloads` must outlive the exporter; `folder` is an open, empty folder.
    Exporter(const PayloadReader& payloads, int folder) : payloads_(payloads), tree_(folder) {}

    /// Writes every resource of every item, with its own name and modification time, into the folder of the item's
    /// first album, or to the top folder if it has none. Throws Failure: integrity if a payload is missing or does not
    /// match, packageUnavailable if one cannot be read, outputNotWritten; Stopped.
    ExportReport write(const CommitRecord& snapshot);

private:
    void makeFolders(const CommitRecord& snapshot);
    void writeResource(const CommitRecord::Resource& resource, const ExportTree::FolderPath& folder);

    const PayloadReader& payloads_;
    ExportTree tree_;
};
