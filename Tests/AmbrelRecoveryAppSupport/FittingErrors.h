#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

/// What the functions of the C library that the engine client calls can come back with.
namespace FittingErrors {

using Errors = std::map<std::string, std::vector<int>, std::less<>>;

/// The errors that each call can really come back with in a run.
const Errors& ofCalls();

/// The functions that cannot fail in a run, or not by themselves.
const std::set<std::string, std::less<>>& unfailing();

} // namespace FittingErrors
