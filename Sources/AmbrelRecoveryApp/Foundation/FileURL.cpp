#include "AmbrelRecoveryApp/Foundation/FileURL.h"

#include <QUrl>

QByteArray FileURL::encoded(const std::filesystem::path& path) {
    return "file://" + QByteArray::fromStdString(path.native()).toPercentEncoding("/");
}

std::optional<std::filesystem::path> FileURL::path(const QUrl& url) {
    const QString host = url.host();
    // An invalid host is empty as well, but then the URL is invalid.
    const bool isOfThisMachine = (host.isEmpty() && url.isValid()) || host == QLatin1String("localhost");
    if (url.scheme() != QLatin1String("file") || !isOfThisMachine || url.hasQuery() || url.hasFragment()) {
        return std::nullopt;
    }
    const QByteArray bytes = QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1());
    if (!bytes.startsWith('/') || bytes.contains('\0')) {
        return std::nullopt;
    }
    return std::filesystem::path(bytes.toStdString());
}
