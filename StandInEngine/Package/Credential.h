#pragma once

#include "Common/SecretBytes.h"
#include "Format/Factor.h"

/// What the user typed, and which of the two secrets it should be.
struct Credential {
    Factor factor = Factor::backupPassphrase;
    SecretBytes typed;
};
