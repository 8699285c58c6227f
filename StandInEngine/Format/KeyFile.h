#pragma once

#include "Common/Bytes.h"
#include "Format/KeySlot.h"

#include <array>

/// The file with the two key slots. A plain checksum over it and the header tells a damaged file from a wrong secret.
struct KeyFile {
    std::array<KeySlot, 2> slots;

    const KeySlot& slot(Factor factor) const;

    /// `header` is the whole text of the header file.
    Bytes encode(ByteView header) const;

    /// Throws Failure: integrity when the checksum does not fit, packageInvalid when the content is beyond what
    /// this engine takes.
    static KeyFile decode(ByteView bytes, ByteView header);
};
