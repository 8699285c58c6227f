#pragma once

#include "AmbrelRecoveryApp/Controls/RecoverySymbol.h"

#include <QString>

#include <filesystem>
#include <vector>

/// The places in the sidebar of file panels.
namespace PanelPlaces {

struct Place {
    /// In the interface language, or the name of a volume.
    QString name;
    std::filesystem::path path;
    RecoverySymbol symbol = RecoverySymbol::folder;

    friend bool operator==(const Place&, const Place&) = default;
};

/// The user's home folder. Any thread.
Place home();

/// The user's standard folders of the desktop that exist, except those that are the home folder itself. Blocks as long
/// as the file system does; any thread.
std::vector<Place> usualFolders();

/// Every mounted volume on which a user may keep files. No volume is accessed. Any thread.
std::vector<Place> volumes();

} // namespace PanelPlaces
