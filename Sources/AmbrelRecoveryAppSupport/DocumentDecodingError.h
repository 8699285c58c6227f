#pragma once

#include <exception>

/// Thrown where the engine's output is not the document that was expected. It says nothing more: a document that cannot
/// be decoded is handled like any failed run.
class DocumentDecodingError final : public std::exception {
public:
    const char* what() const noexcept override { return "the engine's document could not be decoded"; }
};
