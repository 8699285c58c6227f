#pragma once

#include "AmbrelRecoveryApp/Secrets/SecretText.h"

#include <QClipboard>

/// Takes a secret out of a clipboard, so that no other copy of it stays in this process. What the clipboard itself
/// holds is the program's that was copied from, and stays there.
namespace ClipboardSecret {

/// The text of the clipboard on one line: without the line breaks around it and with a space for each one in it, since
/// a copied line brings its end along, and a copied list of words has one word a line. Empty where there is no text.
/// Main thread; throws std::bad_alloc.
SecretText line(QClipboard::Mode mode);

} // namespace ClipboardSecret
