#pragma once

#include "Common/Bytes.h"
#include "Format/KeySlot.h"

#include <array>

/// The file with the two key slots. A plain checksum over this file and the header distinguishes a damaged file from a
/// wrong secret.
struct KeyFile {
    std::array<KeySlot, 2> slots;

    const KeySlot& slot(Factor factor) const;

    /// `header` is the complete text of the header file.
    Bytes encode(ByteView header) const;

    /// Throws Failure: integrity if the checksum does not match, packageInvalid if this engine does not accept the
    /// contents.
    static KeyFile decode(ByteView bytes, ByteView header);
};
