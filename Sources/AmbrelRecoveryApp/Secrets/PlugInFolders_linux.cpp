#include "AmbrelRecoveryApp/Secrets/PlugInFolders.h"

#include "AmbrelPlatform/UniqueDescriptor.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLibraryInfo>

#include <fcntl.h>

void PlugInFolders::useSystemsAlone() {
    qunsetenv("QT_QPA_PLATFORM_PLUGIN_PATH");
    // The toolkit adds the executable's folder when the application object is made, and loads plug-ins at once. What
    // was removed before is removed again then, so the folder is named for once and removed: by its descriptor, because
    // a colon in its name would make two of it.
    const QByteArray folder = QFile::encodeName(QFileInfo(QStringLiteral("/proc/self/exe")).canonicalPath());
    const UniqueDescriptor descriptor(open(folder.constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    qputenv("QT_PLUGIN_PATH", descriptor ? "/proc/self/fd/" + QByteArray::number(descriptor.get()) : folder);
    QCoreApplication::setLibraryPaths({QLibraryInfo::path(QLibraryInfo::PluginsPath)});
    qunsetenv("QT_PLUGIN_PATH");
}
