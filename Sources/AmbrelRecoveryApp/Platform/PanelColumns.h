#pragma once

#include <QIdentityProxyModel>

/// The toolkit's model of a file system with its column headings in the interface language. Main thread.
class PanelColumns final : public QIdentityProxyModel {
    Q_OBJECT

public:
    enum Column { name, size, type, date };

    using QIdentityProxyModel::QIdentityProxyModel;

    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
};
