#pragma once

#include <QByteArray>

#include <filesystem>
#include <optional>

class QUrl;

namespace FileURL {

/// Returns the "file" URL of an absolute path, in ASCII. Every byte of the path other than letters, digits, "-", ".",
/// "_", "~" and the separator is percent-encoded, so that a name in any encoding is preserved. Any thread.
QByteArray encoded(const std::filesystem::path& path);

/// Returns the absolute path that a "file" URL of this machine names, byte for byte, or std::nullopt for any other URL.
/// Any thread.
std::optional<std::filesystem::path> path(const QUrl& url);

} // namespace FileURL
