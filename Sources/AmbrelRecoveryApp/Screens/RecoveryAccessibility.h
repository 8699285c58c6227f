#pragma once

/// Tells Qt how the application's own controls look to assistive technology.
namespace RecoveryAccessibility {

/// To be called before the first control is made; calling it again does nothing. Main thread.
void install();

} // namespace RecoveryAccessibility
