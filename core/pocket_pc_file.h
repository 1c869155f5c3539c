#pragma once

#include "services/base/binary_stream.h"
#include "services/base/string_array.h"

namespace celestrix {

/// Writes normalised lines as a whole Pocket PC file (.ppc) of 16 + 213 * sets bytes, onto an empty stream
/// whose byte order is least significant byte first.
void WritePocketPcFile(const Ref<BinaryStream>& stream, const Ref<StringArray>& lines);

}  // namespace celestrix
