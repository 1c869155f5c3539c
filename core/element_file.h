// From element lines to a file: the one way, for both formats.
#pragma once

#include "services/base/binary_stream.h"
#include "services/base/string_array.h"

namespace celestrix {

enum class ElementFileFormat { kPalmDatabase, kPocketPcFile };

/// Writes normalised lines as a whole file of that format, onto an empty stream, which it leaves open. The byte order
/// belongs to the format, and is set here.
void WriteElementFile(const Ref<BinaryStream>& stream, const Ref<StringArray>& lines, ElementFileFormat format);

}  // namespace celestrix
