#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

/// Secret bytes in locked memory between guard pages, left out of core dumps and wiped when dropped.
/// Move-only, so that a copy is never made by accident, and without any way to print it.
class SecretBytes {
public:
    SecretBytes() noexcept = default;
    /// Makes `size` zero bytes. Throws std::bad_alloc.
    explicit SecretBytes(std::size_t size);
    SecretBytes(SecretBytes&& other) noexcept;
    SecretBytes& operator=(SecretBytes&& other) noexcept;
    SecretBytes(const SecretBytes&) = delete;
    SecretBytes& operator=(const SecretBytes&) = delete;
    ~SecretBytes();

    /// A second holder of the same bytes, made on purpose. Throws std::bad_alloc.
    static SecretBytes copyOf(std::span<const std::uint8_t> bytes);

    std::span<std::uint8_t> bytes() noexcept { return {data_, size_}; }
    std::span<const std::uint8_t> bytes() const noexcept { return {data_, size_}; }
    std::size_t size() const noexcept { return size_; }

    /// Drops and wipes everything from `size` on. `size` is at most the present size.
    void truncate(std::size_t size) noexcept;

private:
    std::uint8_t* data_ = nullptr;
    std::size_t size_ = 0;
};
