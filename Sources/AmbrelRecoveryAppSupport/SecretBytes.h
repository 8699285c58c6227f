#pragma once

#include <cstddef>
#include <iosfwd>
#include <span>

/// The bytes of a secret, in memory of their own that is wiped before it is given back.
/// Moves but does not copy, and cannot be printed, so that no further copy comes to be by accident: a copy is asked for
/// with copyOf(). Not synchronised: one thread at a time.
class SecretBytes {
public:
    SecretBytes() = default;

    /// `size` zero bytes. Throws std::bad_alloc.
    explicit SecretBytes(std::size_t size);

    /// A secret with the same bytes. Throws std::bad_alloc.
    static SecretBytes copyOf(std::span<const std::byte> bytes);

    SecretBytes(SecretBytes&& other) noexcept;
    SecretBytes& operator=(SecretBytes&& other) noexcept;
    SecretBytes(const SecretBytes&) = delete;
    SecretBytes& operator=(const SecretBytes&) = delete;
    ~SecretBytes();

    std::size_t size() const { return size_; }
    bool empty() const { return size_ == 0; }

    /// Valid until this object is wiped, moved from, assigned to or destroyed.
    std::span<const std::byte> bytes() const { return {data_, size_}; }
    std::span<std::byte> bytes() { return {data_, size_}; }

    /// Overwrites every byte with zero and becomes empty. May be called any number of times.
    void wipe() noexcept;

private:
    std::byte* data_ = nullptr;
    std::size_t size_ = 0;
};

std::ostream& operator<<(std::ostream&, const SecretBytes&) = delete;
