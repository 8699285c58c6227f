#pragma once

#include <map>
#include <string>

/// Every open descriptor of this process with what it refers to, for a comparison of before and after.
std::map<int, std::string> openDescriptors();
