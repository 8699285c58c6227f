#pragma once

/// The accessible interfaces of the application's own controls.
namespace RecoveryAccessibility {

/// Registers the interfaces with Qt. Call before the first control is created; further calls do nothing. Main thread.
void install();

} // namespace RecoveryAccessibility
