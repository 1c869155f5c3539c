#pragma once

#include "services/base/binary_stream.h"

namespace celestrix {

/// Writes the header of a Pocket PC file (.ppc) of that many element sets. The stream must be empty, with the least
/// significant byte first; afterwards it is at the data start, 16.
void WritePocketPcHeader(const Ref<BinaryStream>& stream, std::int32_t setCount);

}  // namespace celestrix
