// From element lines to a file, in either format.
#pragma once

#include "services/base/binary_stream.h"
#include "services/base/string_array.h"

namespace celestrix {

enum class ElementFileFormat { kPalmDatabase, kPocketPcFile };

/// Writes normalised lines as a complete file of that format to an empty stream, which stays open. Sets the stream's
/// byte order to that of the format.
void WriteElementFile(const Ref<BinaryStream>& stream, const Ref<StringArray>& lines, ElementFileFormat format);

}  // namespace celestrix
