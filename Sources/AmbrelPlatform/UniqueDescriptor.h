#pragma once

/// Owns an open file descriptor and closes it on destruction. Not synchronized.
class UniqueDescriptor {
public:
    UniqueDescriptor() = default;

    /// Takes ownership of `descriptor`; a negative value means none.
    explicit UniqueDescriptor(int descriptor) : descriptor_(descriptor) {}

    UniqueDescriptor(UniqueDescriptor&& other) noexcept;
    UniqueDescriptor& operator=(UniqueDescriptor other) noexcept;
    UniqueDescriptor(const UniqueDescriptor&) = delete;
    ~UniqueDescriptor();

    /// The descriptor, or a negative number if none is held.
    int get() const { return descriptor_; }
    explicit operator bool() const { return descriptor_ >= 0; }

    /// Closes the descriptor, if any. Returns false if the system reported a failure; the descriptor is released either
    /// way.
    bool close() noexcept;

private:
    int descriptor_ = -1;
};

/// Returns the same open file with a descriptor above the three standard streams, so that redirecting a stream of a new
/// process cannot overwrite it. Returns an empty one if `descriptor` is empty or the system call fails.
UniqueDescriptor aboveStandardStreams(UniqueDescriptor descriptor);
