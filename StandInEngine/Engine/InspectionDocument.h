#pragma once

#include "Engine/Inspection.h"

#include <string>

/// The JSON document of an inspection.
namespace InspectionDocument {

/// Returns the document, with a trailing line feed.
std::string write(const Inspection& inspection);

} // namespace InspectionDocument
