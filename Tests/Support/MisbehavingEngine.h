#pragma once

#include <filesystem>

/// The path of the program misbehaving-engine, which Tests/MisbehavingEngine/README.md describes.
std::filesystem::path misbehavingEngine();
