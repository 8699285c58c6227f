#pragma once

/// Checks the library's algorithms against published test vectors. Each function returns whether all of its vectors
/// match.
namespace CryptographyCheck {

/// Argon2id version 1.3, against two vectors of its reference implementation.
bool argon2id();

/// XChaCha20-Poly1305 with 24-byte nonces, against the vector of draft-irtf-cfrg-xchacha, A.3.1. A modified ciphertext
/// must be rejected.
bool xchacha20Poly1305();

/// BLAKE2b without a key against RFC 7693, appendix A, and with a key against the BLAKE2 authors' known answers.
bool blake2b();

} // namespace CryptographyCheck
