#include "Format/RecoveryKey.h"

#include "Common/Bytes.h"
#include "Common/KeyedHash.h"

#include <sodium.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace {

constexpr std::string_view alphabet = "0123456789ABCDEFGHJKMNPQRSTVWXYZ";
constexpr std::size_t keyByteCount = 16;
constexpr std::size_t symbolCount = 30;
constexpr std::size_t groupLength = 5;
// 150 bits of symbols hold a 128-bit key and a 22-bit checksum: 19 bytes, of which the last two bits are unused.
constexpr std::size_t codeByteCount = 19;

constexpr std::array<std::string_view, 14> separators = {
    "-",      " ",      "\t",     "\n",     "\r",     "\u00A0", "\u2010",
    "\u2011", "\u2012", "\u2013", "\u2014", "\u2015", "\u2212", "\u202F",
};

SecretBytes withChecksum(ByteView key) {
    SecretBytes code(codeByteCount);
    KeyedHash hash({});
    hash.update(bytesOf("ambrel stand-in recovery key"));
    hash.update(key);
    Identifier sum = hash.finish();
    std::copy(key.begin(), key.end(), code.bytes().begin());
    std::copy_n(sum.bytes.begin(), codeByteCount - keyByteCount, code.bytes().begin() + keyByteCount);
    code.bytes()[codeByteCount - 1] &= 0xFC;
    sodium_memzero(sum.bytes.data(), sum.bytes.size());
    return code;
}

bool skipSeparator(std::string_view& rest) {
    for (const std::string_view separator : separators) {
        if (rest.starts_with(separator)) {
            rest.remove_prefix(separator.size());
            return true;
        }
    }
    return false;
}

std::optional<std::uint8_t> symbolValue(char character) {
    if (character >= 'a' && character <= 'z') {
        character = static_cast<char>(character - 'a' + 'A');
    }
    if (character == 'I' || character == 'L') {
        character = '1';
    } else if (character == 'O') {
        character = '0';
    }
    const std::size_t value = alphabet.find(character);
    if (value == std::string_view::npos) {
        return std::nullopt;
    }
    return static_cast<std::uint8_t>(value);
}

// Stores the five bits of symbol number `index` at their place, most significant bit first.
void place(SecretBytes& code, std::size_t index, std::uint8_t value) {
    for (std::size_t bit = 0; bit < 5; ++bit) {
        if ((value >> (4 - bit) & 1) != 0) {
            const std::size_t position = index * 5 + bit;
            code.bytes()[position / 8] |= static_cast<std::uint8_t>(0x80 >> position % 8);
        }
    }
}

std::uint8_t symbolAt(const SecretBytes& code, std::size_t index) {
    unsigned value = 0;
    for (std::size_t bit = 0; bit < 5; ++bit) {
        const std::size_t position = index * 5 + bit;
        const unsigned byte = code.bytes()[position / 8];
        value = value << 1 | (byte >> (7 - position % 8) & 1U);
    }
    return static_cast<std::uint8_t>(value);
}

} // namespace

SecretBytes RecoveryKey::generate() {
    SecretBytes key(keyByteCount);
    randombytes_buf(key.bytes().data(), key.size());
    return key;
}

SecretBytes RecoveryKey::print(const SecretBytes& key) {
    const SecretBytes code = withChecksum(key.bytes());
    SecretBytes text(symbolCount + symbolCount / groupLength - 1);
    std::size_t position = 0;
    for (std::size_t index = 0; index < symbolCount; ++index) {
        if (index > 0 && index % groupLength == 0) {
            text.bytes()[position++] = '-';
        }
        text.bytes()[position++] = static_cast<std::uint8_t>(alphabet[symbolAt(code, index)]);
    }
    return text;
}

std::optional<SecretBytes> RecoveryKey::parse(const SecretBytes& typed) {
    std::string_view rest(reinterpret_cast<const char*>(typed.bytes().data()), typed.size());
    SecretBytes code(codeByteCount);
    std::size_t symbols = 0;
    while (!rest.empty()) {
        if (skipSeparator(rest)) {
            continue;
        }
        const std::optional<std::uint8_t> value = symbolValue(rest.front());
        if (!value || symbols == symbolCount) {
            return std::nullopt;
        }
        place(code, symbols++, *value);
        rest.remove_prefix(1);
    }
    const SecretBytes expected = withChecksum(code.bytes().first(keyByteCount));
    if (symbols != symbolCount || sodium_memcmp(expected.bytes().data(), code.bytes().data(), codeByteCount) != 0) {
        return std::nullopt;
    }
    code.truncate(keyByteCount);
    return code;
}
