#pragma once

#include <string>

/// What the engine prints on a walk through the screens.
namespace ScreenWalkDocuments {

/// Three snapshots of one history, the oldest one incomplete; the newest one is recommended.
std::string inspection();
/// The same snapshots in two histories.
std::string forkedInspection();
/// Snapshots with counts and sizes as long as they can reasonably be, none of them complete.
std::string largeInspection();
/// No snapshots at all.
std::string emptyInspection();
/// An export of a few thousand items.
std::string exportReport();

} // namespace ScreenWalkDocuments
