#pragma once

/// Where Qt looks for plug-ins, which run with all rights of the process.
namespace PlugInFolders {

/// Restricts Qt to its own plug-in directory: ignores those that the environment names, and that of the executable. The
/// `qt.conf` among the resources overrides one beside the executable. Call before the application object is created.
void useSystemsAlone();

} // namespace PlugInFolders
