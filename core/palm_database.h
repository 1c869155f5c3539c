#pragma once

#include "services/base/binary_stream.h"

namespace celestrix {

/// Writes what comes before the records in a Palm database (.pdb) of that many element sets: the header and the record
/// list. The stream must be empty, with the most significant byte first; afterwards it is at the data start,
/// 78 + 8 * sets. The number of records has 16 bits: a database of more than 65,535 sets has all its records, but
/// states their number modulo 65,536.
void WritePalmHeader(const Ref<BinaryStream>& stream, std::int32_t setCount);

/// Fills the 32 bytes of the name field with a database name and NUL bytes, at least one. A name that is too long is
/// cut off after 31 bytes. The stream must be at position 0; afterwards it is at 32.
void WriteDatabaseName(const Ref<BinaryStream>& stream, const String& name);

}  // namespace celestrix
