#include "Common/SecretBytes.h"

#include <sodium.h>

#include <algorithm>
#include <new>
#include <utility>

SecretBytes::SecretBytes(std::size_t size) : size_(size) {
    data_ = static_cast<std::uint8_t*>(sodium_malloc(size));
    if (data_ == nullptr) {
        throw std::bad_alloc();
    }
    sodium_memzero(data_, size);
}

SecretBytes::SecretBytes(SecretBytes&& other) noexcept
    : data_(std::exchange(other.data_, nullptr)), size_(std::exchange(other.size_, 0)) {}

SecretBytes& SecretBytes::operator=(SecretBytes&& other) noexcept {
    std::swap(data_, other.data_);
    std::swap(size_, other.size_);
    return *this;
}

SecretBytes::~SecretBytes() {
    // Wipes the whole allocation, including the part cut off by truncate().
    sodium_free(data_);
}

SecretBytes SecretBytes::copyOf(std::span<const std::uint8_t> bytes) {
    SecretBytes copy(bytes.size());
    std::copy(bytes.begin(), bytes.end(), copy.data_);
    return copy;
}

void SecretBytes::truncate(std::size_t size) noexcept {
    sodium_memzero(data_ + size, size_ - size);
    size_ = size;
}
