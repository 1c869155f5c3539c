#pragma once

#include "services/base/binary_stream.h"

namespace celestrix {

/// Writes what a Palm database (.pdb) of that many element sets has before its records: the header and the record
/// list. The stream is empty, with the most significant byte first; it is left at the data start, 78 + 8 * sets. The
/// number of records is kept in 16 bits: a database of more than 65,535 sets has all its records, but a count modulo
/// 65,536.
void WritePalmHeader(const Ref<BinaryStream>& stream, std::int32_t setCount);

/// Writes a database name and a NUL byte, and brings them to the 32 bytes of the name field: a shorter name is
/// filled up with NUL bytes, one that is too long loses what stands beyond its first 31 bytes. The stream is at
/// position 0, and at 32 afterwards.
void WriteDatabaseName(const Ref<BinaryStream>& stream, const String& name);

}  // namespace celestrix
