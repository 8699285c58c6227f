#pragma once

#include "AmbrelRecoveryApp/Controls/RecoverySymbol.h"

#include <QString>

#include <filesystem>
#include <vector>

/// The places that file panels offer beside their list.
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

/// Those of the desktop's usual folders of the user that exist, without those that are the home folder itself. Blocks
/// for as long as the file system does; any thread.
std::vector<Place> usualFolders();

/// Every mounted volume that a user may keep files on. No volume is touched. Any thread.
std::vector<Place> volumes();

} // namespace PanelPlaces
