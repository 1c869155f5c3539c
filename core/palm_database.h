#pragma once

#include "services/base/binary_stream.h"
#include "services/base/string_array.h"

namespace celestrix {

/// Writes normalised lines as a whole Palm database (.pdb) of 78 + 221 * sets bytes, onto an empty stream
/// whose byte order is most significant byte first. The number of records is kept in 16 bits: a text of
/// more than 65,535 sets has all its records, but a count modulo 65,536.
void WritePalmDatabase(const Ref<BinaryStream>& stream, const Ref<StringArray>& lines);

/// Writes a database name and a NUL byte, and brings them to the 32 bytes of the name field: a shorter name is
/// filled up with NUL bytes, one that is too long loses what stands beyond its first 31 bytes. The stream is at
/// position 0, and at 32 afterwards.
void WriteDatabaseName(const Ref<BinaryStream>& stream, const String& name);

}  // namespace celestrix
