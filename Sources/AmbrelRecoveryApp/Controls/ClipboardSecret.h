#pragma once

#include "AmbrelRecoveryApp/Secrets/SecretText.h"

#include <QClipboard>

/// Reads a secret from a clipboard without leaving another copy in this process. The contents of the clipboard belong
/// to the program that they were copied from, and stay there.
namespace ClipboardSecret {

/// Returns the text of the clipboard on one line. Line breaks around it are removed, because a copied line includes its
/// end; those within it become spaces, because a copied list of words has one word per line. Empty if there is no text.
/// Main thread; throws std::bad_alloc.
SecretText line(QClipboard::Mode mode);

} // namespace ClipboardSecret
