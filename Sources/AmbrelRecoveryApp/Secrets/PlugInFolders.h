#pragma once

/// Where the toolkit looks for plug-ins, which run with all that the process has.
namespace PlugInFolders {

/// Leaves the toolkit's own folder alone: none that the environment names, and not the executable's. What a `qt.conf`
/// beside the executable says is shut out by the one among the resources. Before there is an application object.
void useSystemsAlone();

} // namespace PlugInFolders
