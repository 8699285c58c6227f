#pragma once

#include "Engine/Inspection.h"

#include <string>

/// The JSON document of an inspection.
namespace InspectionDocument {

/// The document, with a line feed at its end.
std::string write(const Inspection& inspection);

} // namespace InspectionDocument
