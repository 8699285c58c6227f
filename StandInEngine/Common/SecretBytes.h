#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

/// Secret bytes in locked memory between guard pages, excluded from core dumps and wiped when freed. Movable but not
/// copyable or printable, so that no copy is made by accident.
class SecretBytes {
public:
    SecretBytes() noexcept = default;
    /// `size` zero bytes. Throws std::bad_alloc.
    explicit SecretBytes(std::size_t size);
    SecretBytes(SecretBytes&& other) noexcept;
    SecretBytes& operator=(SecretBytes&& other) noexcept;
    SecretBytes(const SecretBytes&) = delete;
    SecretBytes& operator=(const SecretBytes&) = delete;
    ~SecretBytes();

    /// Makes an intended copy. Throws std::bad_alloc.
    static SecretBytes copyOf(std::span<const std::uint8_t> bytes);

    std::span<std::uint8_t> bytes() noexcept { return {data_, size_}; }
    std::span<const std::uint8_t> bytes() const noexcept { return {data_, size_}; }
    std::size_t size() const noexcept { return size_; }

    /// Wipes and drops all bytes from `size` on. `size` is at most the current size.
    void truncate(std::size_t size) noexcept;

private:
    std::uint8_t* data_ = nullptr;
    std::size_t size_ = 0;
};
