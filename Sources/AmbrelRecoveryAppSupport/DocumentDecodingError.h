#pragma once

#include <exception>

/// Thrown if the engine's output is not the expected document. Has no details: a document that cannot be decoded is
/// handled like any failed run.
class DocumentDecodingError final : public std::exception {
public:
    const char* what() const noexcept override { return "the engine's document could not be decoded"; }
};
