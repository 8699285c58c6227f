#pragma once

/// Setup of the process itself.
namespace ProcessSetup {

/// Makes the process independent of what it inherited from its parent: the three standard streams are open, terminated
/// children are kept until they are waited for, and neither the process nor its engine leaves a core dump that could
/// contain a secret. Call first of all, in both modes, before any thread starts.
void prepare();

/// Permanently keeps other programs of the same user from inspecting the process. The desktop portal is one of them:
/// from then on, it denies everything to connections that it does not already know. Call before there is a secret. Any
/// thread.
void keepOthersOut();

} // namespace ProcessSetup
