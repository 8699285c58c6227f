#pragma once

/// The one owner of an open file descriptor, closed when it is destroyed. Not synchronised.
class UniqueDescriptor {
public:
    UniqueDescriptor() = default;

    /// Takes over `descriptor`; a negative one stands for none.
    explicit UniqueDescriptor(int descriptor) : descriptor_(descriptor) {}

    UniqueDescriptor(UniqueDescriptor&& other) noexcept;
    UniqueDescriptor& operator=(UniqueDescriptor&& other) noexcept;
    UniqueDescriptor(const UniqueDescriptor&) = delete;
    UniqueDescriptor& operator=(const UniqueDescriptor&) = delete;
    ~UniqueDescriptor();

    /// The descriptor, or a negative number where none is held.
    int get() const { return descriptor_; }
    explicit operator bool() const { return descriptor_ >= 0; }

    /// Closes what is held, if anything. False where the system reported a failure; nothing is held afterwards either
    /// way.
    bool close() noexcept;

private:
    int descriptor_ = -1;
};

/// The same open file under a number behind those of the three standard streams, so that redirecting a stream of a new
/// process cannot overwrite it. None where `descriptor` is none or the system refuses.
UniqueDescriptor aboveStandardStreams(UniqueDescriptor descriptor);
