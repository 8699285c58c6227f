#pragma once

#include <string>

/// Texts of inspection documents for measurements.
namespace SampleDocument {

/// A document of `count` snapshots as an engine writes it: without blanks, its fields in the order of the contract.
std::string inspection(int count);

} // namespace SampleDocument
