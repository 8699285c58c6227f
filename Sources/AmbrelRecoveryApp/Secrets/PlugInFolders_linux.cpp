#include "AmbrelRecoveryApp/Secrets/PlugInFolders.h"

#include "AmbrelPlatform/UniqueDescriptor.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLibraryInfo>

#include <fcntl.h>

void PlugInFolders::useSystemsAlone() {
    qunsetenv("QT_QPA_PLATFORM_PLUGIN_PATH");
    // Qt adds the executable's directory when the application object is created, and loads plug-ins at once. Paths that
    // were removed before are removed again then, so the directory is added and removed once here: by its descriptor,
    // because a colon in its name would split it in two.
    const QByteArray folder = QFile::encodeName(QFileInfo(QStringLiteral("/proc/self/exe")).canonicalPath());
    const UniqueDescriptor descriptor(open(folder.constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    qputenv("QT_PLUGIN_PATH", descriptor ? "/proc/self/fd/" + QByteArray::number(descriptor.get()) : folder);
    QCoreApplication::setLibraryPaths({QLibraryInfo::path(QLibraryInfo::PluginsPath)});
    qunsetenv("QT_PLUGIN_PATH");
}
