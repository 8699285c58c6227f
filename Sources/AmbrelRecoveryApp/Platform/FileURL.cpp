#include "AmbrelRecoveryApp/Platform/FileURL.h"

QByteArray FileURL::encoded(const std::filesystem::path& path) {
    return "file://" + QByteArray::fromStdString(path.native()).toPercentEncoding("/");
}
