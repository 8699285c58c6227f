#include "AmbrelRecoveryAppSupport/SecretBytes.h"

#include "AmbrelRecoveryAppSupport/SecretMemory.h"

#include <algorithm>
#include <utility>

SecretBytes::SecretBytes(std::size_t size) : data_(size == 0 ? nullptr : SecretMemory::allocate(size)), size_(size) {}

SecretBytes SecretBytes::copyOf(std::span<const std::byte> bytes) {
    SecretBytes copy(bytes.size());
    std::ranges::copy(bytes, copy.data_);
    return copy;
}

SecretBytes::SecretBytes(SecretBytes&& other) noexcept
    : data_(std::exchange(other.data_, nullptr)), size_(std::exchange(other.size_, 0)) {}

SecretBytes& SecretBytes::operator=(SecretBytes other) noexcept {
    std::swap(data_, other.data_);
    std::swap(size_, other.size_);
    return *this;
}

SecretBytes::~SecretBytes() {
    wipe();
}

void SecretBytes::wipe() noexcept {
    if (data_ == nullptr) {
        return;
    }
    SecretMemory::wipe(bytes());
    SecretMemory::release(data_, size_);
    data_ = nullptr;
    size_ = 0;
}
