#pragma once

#include <cstddef>
#include <iosfwd>
#include <span>

/// The bytes of a secret, in separate memory that is wiped before it is freed. Movable but not copyable or printable,
/// so that no copy is made by accident; use copyOf() for an intended copy. Not synchronized.
class SecretBytes {
public:
    SecretBytes() = default;

    /// `size` zero bytes. Throws std::bad_alloc.
    explicit SecretBytes(std::size_t size);

    /// Returns a secret with the same bytes. Throws std::bad_alloc.
    static SecretBytes copyOf(std::span<const std::byte> bytes);

    SecretBytes(SecretBytes&& other) noexcept;
    SecretBytes& operator=(SecretBytes other) noexcept;
    SecretBytes(const SecretBytes&) = delete;
    ~SecretBytes();

    std::size_t size() const { return size_; }
    bool empty() const { return size_ == 0; }

    /// Valid until this object is wiped, moved from, assigned to or destroyed.
    std::span<const std::byte> bytes() const { return {data_, size_}; }
    std::span<std::byte> bytes() { return {data_, size_}; }

    /// Overwrites all bytes with zeros and becomes empty. Idempotent.
    void wipe() noexcept;

private:
    std::byte* data_ = nullptr;
    std::size_t size_ = 0;
};

std::ostream& operator<<(std::ostream&, const SecretBytes&) = delete;
