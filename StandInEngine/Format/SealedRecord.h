#pragma once

#include "Common/Bytes.h"
#include "Common/Identifier.h"
#include "Format/PackageKeys.h"
#include "Format/RecordKind.h"

/// Encrypts and authenticates a record as a whole, bound to its package, kind and name.
namespace SealedRecord {

/// The content of the record's file.
Bytes seal(const PackageKeys& keys, RecordKind kind, const Identifier& name, ByteView plaintext);

/// Returns the record's plaintext. Throws Failure (integrity) if it does not authenticate.
Bytes open(const PackageKeys& keys, RecordKind kind, const Identifier& name, ByteView sealed);

} // namespace SealedRecord
