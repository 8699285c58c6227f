#include "Engine/ExportReport.h"

#include "Engine/JsonWriter.h"

std::string ExportReport::document() const {
    JsonWriter json;
    json.beginObject();
    json.member("schemaIdentifier", "com.ambrel.recovery.cli-export.v1");
    json.member("status", "complete");
    json.member("selectedSnapshotCode", selectedSnapshotCode);
    json.member("totalItemCount", itemCount);
    json.member("recoveredItemCount", itemCount);
    json.member("totalResourceCount", resourceCount);
    json.member("recoveredResourceCount", resourceCount);
    json.member("failedResourceCount", 0);
    json.endObject();
    return json.text() + "\n";
}
