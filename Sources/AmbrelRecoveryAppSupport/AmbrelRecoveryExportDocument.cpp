#include "AmbrelRecoveryAppSupport/AmbrelRecoveryExportDocument.h"

#include "AmbrelRecoveryAppSupport/DocumentObject.h"

AmbrelRecoveryExportDocument AmbrelRecoveryExportDocument::decode(std::string_view json) {
    return DocumentObject::parse(json, [](DocumentObject object) {
        return AmbrelRecoveryExportDocument{
            .schemaIdentifier = object.string("schemaIdentifier"),
            .status = object.string("status"),
            .selectedSnapshotCode = object.string("selectedSnapshotCode"),
            .totalItemCount = object.signedInteger("totalItemCount"),
            .recoveredItemCount = object.signedInteger("recoveredItemCount"),
            .totalResourceCount = object.signedInteger("totalResourceCount"),
            .recoveredResourceCount = object.signedInteger("recoveredResourceCount"),
            .failedResourceCount = object.signedInteger("failedResourceCount"),
        };
    });
}
