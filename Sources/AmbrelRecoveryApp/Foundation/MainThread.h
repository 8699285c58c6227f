#pragma once

/// The thread that main() runs on. The user interface is confined to it. Any thread.
namespace MainThread {

/// Aborts the program, in every build, if not called on the main thread. Call it first in every function that is
/// confined to the main thread, unless Qt already confines it, as it does every widget.
void require();

} // namespace MainThread
