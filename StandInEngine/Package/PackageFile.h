#pragma once

#include "Common/UniqueDescriptor.h"

#include <cstdint>

/// The result of opening a file inside a package.
struct PackageFile {
    enum class State {
        opened,
        missing,
        /// A link, a folder, a device or anything else that does not belong in a package.
        irregular,
        unreadable,
    };

    State state = State::missing;
    /// Open for reading if the state is `opened`.
    UniqueDescriptor descriptor;
    std::uint64_t byteCount = 0;
};
