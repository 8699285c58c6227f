#pragma once

#include <QByteArray>

#include <filesystem>

/// File URLs.
namespace FileURL {

/// The "file" URL of an absolute path, in ASCII. Every byte of the path but letters, digits, "-", ".", "_", "~" and the
/// separator is percent-encoded, so that a name in any encoding comes back as it was. Any thread.
QByteArray encoded(const std::filesystem::path& path);

} // namespace FileURL
