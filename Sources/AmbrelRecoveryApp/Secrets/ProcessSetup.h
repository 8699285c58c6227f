#pragma once

/// What the process sets up for itself.
namespace ProcessSetup {

/// Makes the process independent of what its parent left it: the three standard streams are open, ended children are
/// kept until they are waited for, and neither it nor its engine leaves a core dump that could hold a secret. To be
/// called first of all, in both modes, before any thread starts.
void prepare();

/// Keeps other programs of the same user from looking into the process, for good. The desktop's portal is one of them:
/// it grants nothing any more to connections that it has not come to know by then. To be called before there is a
/// secret. Any thread.
void keepOthersOut();

} // namespace ProcessSetup
