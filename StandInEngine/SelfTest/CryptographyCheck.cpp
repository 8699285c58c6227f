#include "SelfTest/CryptographyCheck.h"

#include "Common/Bytes.h"
#include "Common/Hexadecimal.h"

#include <sodium.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <numeric>
#include <string_view>

namespace {

// `count` consecutive byte values from `first`, like the keys and nonces of the vectors.
Bytes ascending(std::uint8_t first, std::size_t count) {
    Bytes bytes(count);
    std::iota(bytes.begin(), bytes.end(), first);
    return bytes;
}

bool hashes(ByteView content, ByteView key, std::string_view expected) {
    std::array<std::uint8_t, 64> hash{};
    crypto_generichash(hash.data(), hash.size(), content.data(), content.size(), key.data(), key.size());
    return Hexadecimal::encode(hash) == expected;
}

} // namespace

bool CryptographyCheck::argon2id() {
    constexpr std::string_view password = "password";
    return std::ranges::all_of(
        std::array{
            "$argon2id$v=19$m=256,t=2,p=1$c29tZXNhbHQ$nf65EOgLrQMR/uIPnA4rEsF5h7TKyQwu9U1bMCHGi/4",
            "$argon2id$v=19$m=65536,t=2,p=1$c29tZXNhbHQ$CTFhFdXPJO1aFaMaO6Mm5c8y7cJHAph8ArZWb2GRPPc",
        },
        [&](const char* vector) {
            return crypto_pwhash_argon2id_str_verify(vector, password.data(), password.size()) == 0;
        });
}

bool CryptographyCheck::xchacha20Poly1305() {
    constexpr std::string_view plaintext = "Ladies and Gentlemen of the class of '99: If I could offer you only one "
                                           "tip for the future, sunscreen would be it.";
    constexpr std::string_view expected =
        "bd6d179d3e83d43b9576579493c0e939572a1700252bfaccbed2902c21396cbb731c7f1b0b4aa6440bf3a82f4eda7e39ae64c6708c54c2"
        "16cb96b72e1213b4522f8c9ba40db5d945b11b69b982c1bb9e3f3fac2bc369488f76b2383565d3fff921f9664c97637da9768812f615c6"
        "8b13b52ec0875924c1c7987947deafd8780acf49";
    const Bytes key = ascending(0x80, crypto_aead_xchacha20poly1305_ietf_KEYBYTES);
    const Bytes nonce = ascending(0x40, crypto_aead_xchacha20poly1305_ietf_NPUBBYTES);
    constexpr std::array<std::uint8_t, 12> associated = {0x50, 0x51, 0x52, 0x53, 0xc0, 0xc1,
                                                         0xc2, 0xc3, 0xc4, 0xc5, 0xc6, 0xc7};
    Bytes sealed(plaintext.size() + crypto_aead_xchacha20poly1305_ietf_ABYTES);
    crypto_aead_xchacha20poly1305_ietf_encrypt(sealed.data(), nullptr, bytesOf(plaintext).data(), plaintext.size(),
                                               associated.data(), associated.size(), nullptr, nonce.data(), key.data());
    const auto opens = [&](const Bytes& candidate) {
        Bytes opened(plaintext.size());
        return crypto_aead_xchacha20poly1305_ietf_decrypt(opened.data(), nullptr, nullptr, candidate.data(),
                                                          candidate.size(), associated.data(), associated.size(),
                                                          nonce.data(), key.data()) == 0 &&
               std::ranges::equal(opened, bytesOf(plaintext));
    };
    Bytes changed = sealed;
    changed[changed.size() / 2] ^= 1;
    return Hexadecimal::encode(sealed) == expected && opens(sealed) && !opens(changed);
}

bool CryptographyCheck::blake2b() {
    const Bytes key = ascending(0, crypto_generichash_KEYBYTES_MAX);
    return hashes(bytesOf("abc"), {},
                  "ba80a53f981c4d0d6a2797b69f12f6e94c212f14685ac4b74b12bb6fdbffa2d1"
                  "7d87c5392aab792dc252d5de4533cc9518d38aa8dbf1925ab92386edd4009923") &&
           hashes({}, key,
                  "10ebb67700b1868efb4417987acf4690ae9d972fb7a590c2f02871799aaa4786"
                  "b5e996e8f0f4eb981fc214b005f42d2ff4233499391653df7aefcbc13fc51568") &&
           hashes(ascending(0, 255), key,
                  "142709d62e28fcccd0af97fad0f8465b971e82201dc51070faa0372aa43e9248"
                  "4be1c1e73ba10906d5d1853db6a4106e0a7bf9800d373d6dee2d46d62ef2a461");
}
