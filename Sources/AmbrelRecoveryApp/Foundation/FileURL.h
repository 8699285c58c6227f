#pragma once

#include <QByteArray>

#include <filesystem>
#include <optional>

class QUrl;

/// File URLs.
namespace FileURL {

/// The "file" URL of an absolute path, in ASCII. Every byte of the path but letters, digits, "-", ".", "_", "~" and the
/// separator is percent-encoded, so that a name in any encoding comes back as it was. Any thread.
QByteArray encoded(const std::filesystem::path& path);

/// The absolute path that a "file" URL of this machine names, byte for byte, or none for every other URL. Any thread.
std::optional<std::filesystem::path> path(const QUrl& url);

} // namespace FileURL
