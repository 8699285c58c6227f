#include "AmbrelRecoveryApp/Platform/PanelColumns.h"

#include "AmbrelLocalization/AmbrelStrings.h"

QVariant PanelColumns::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole) {
        switch (section) {
        case name:
            return AmbrelStrings::localized(AmbrelStrings::organizationName());
        case size:
            return AmbrelStrings::localized(AmbrelStrings::detailsSize());
        case date:
            return AmbrelStrings::localized(AmbrelStrings::detailsDateSourceFile());
        default:
            break;
        }
    }
    return QIdentityProxyModel::headerData(section, orientation, role);
}
