#pragma once

#include <QString>

#include <set>

/// The English texts that stand for several things, so that their translations may differ from key to key.
inline const std::set<QString> textsOfSeveralMeanings = {
    // things, and the app of that name
    "Files",
    "Photos",
    // the name of a screen or an activity, and the button that starts it
    "Delete originals from Photos",
    "Delete this library",
    "Export",
    "Export to Files",
    "Export to Photos",
    "Import from Files",
    "Import from Photos",
    "Inspect backup",
    "Restore",
    "Set up backup",
    "Share",
    "Unlock with Face ID",
    // states and counts, of things that have a gender or a number in other languages
    "Allowed",
    "Cancelled",
    "Failed",
    "Imported",
    "Incomplete",
    "Not allowed",
    "Protected",
    "Selected",
    "Verified when written",
    // a mark on an item, and the collection that holds it
    "Favorite",
    // the destination of a backup and the one of an export
    "This destination cannot be used",
};
