// How fast the stand-in engine's cipher decrypts, and how fast its hash reads, in memory, in chunks as long as in its
// packages.

#include <benchmark/benchmark.h>
#include <sodium.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace {

constexpr std::size_t chunk = 65'536;

void decrypt(benchmark::State& state) {
    std::array<unsigned char, crypto_secretstream_xchacha20poly1305_KEYBYTES> key{};
    std::array<unsigned char, crypto_secretstream_xchacha20poly1305_HEADERBYTES> header{};
    std::vector<unsigned char> plain(chunk);
    std::vector<unsigned char> sealed(chunk + crypto_secretstream_xchacha20poly1305_ABYTES);
    crypto_secretstream_xchacha20poly1305_state stream;
    crypto_secretstream_xchacha20poly1305_init_push(&stream, header.data(), key.data());
    crypto_secretstream_xchacha20poly1305_push(&stream, sealed.data(), nullptr, plain.data(), plain.size(), nullptr, 0,
                                               0);
    for (auto _ : state) {
        crypto_secretstream_xchacha20poly1305_init_pull(&stream, header.data(), key.data());
        if (crypto_secretstream_xchacha20poly1305_pull(&stream, plain.data(), nullptr, nullptr, sealed.data(),
                                                       sealed.size(), nullptr, 0) != 0) {
            state.SkipWithError("the chunk was not decrypted");
        }
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(chunk) * state.iterations());
}
BENCHMARK(decrypt);

void hash(benchmark::State& state) {
    const std::vector<unsigned char> plain(chunk);
    crypto_generichash_state hash;
    crypto_generichash_init(&hash, nullptr, 0, crypto_generichash_BYTES);
    for (auto _ : state) {
        crypto_generichash_update(&hash, plain.data(), plain.size());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(chunk) * state.iterations());
}
BENCHMARK(hash);

} // namespace

BENCHMARK_MAIN();
