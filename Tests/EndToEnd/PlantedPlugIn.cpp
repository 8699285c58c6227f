// A plug-in of the toolkit that it loads wherever it finds it: QT_QPA_GENERIC_PLUGINS asks for it by its name.

#include <QGenericPlugin>

class PlantedPlugIn final : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "PlantedPlugIn.json")

public:
    QObject* create(const QString&, const QString&) override { return nullptr; }
};

#include "PlantedPlugIn.moc"
