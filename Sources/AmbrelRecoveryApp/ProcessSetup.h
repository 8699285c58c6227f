#pragma once

/// What the process sets up once, first of all, in both modes.
namespace ProcessSetup {

/// Makes the process independent of what its parent left it: the three standard streams are open, ended children are
/// kept until they are waited for, and there is no core dump that could hold a secret. To be called before any thread
/// starts.
void prepare();

} // namespace ProcessSetup
