#pragma once

#include <cstddef>
#include <cstdint>

/// The names of everything in a package, and the size limits that the engine enforces.
namespace PackageLayout {

inline constexpr const char* headerFile = "header.txt";
inline constexpr const char* keyFile = "keys";
inline constexpr const char* commitFolder = "commits";
inline constexpr const char* headFolder = "heads";
inline constexpr const char* payloadFolder = "payloads";

inline constexpr std::size_t maximumHeaderByteCount = 4096;
inline constexpr std::size_t maximumCommitByteCount = std::size_t{64} << 20;
inline constexpr std::size_t maximumTotalCommitByteCount = std::size_t{256} << 20;
inline constexpr std::size_t maximumHeadByteCount = 4096;
inline constexpr std::size_t maximumCommitCount = 4096;
inline constexpr std::size_t maximumHeadCount = 64;
inline constexpr std::uint64_t maximumResourceByteCount = std::uint64_t{1} << 60;

} // namespace PackageLayout
