#pragma once

/// The thread that main() runs on, which everything that the user sees is confined to. Any thread.
namespace MainThread {

/// Stops the program, in every build, where it is not called on the main thread. Stands at the beginning of what may be
/// called there alone, unless the toolkit confines it already, as it does every widget.
void require();

} // namespace MainThread
