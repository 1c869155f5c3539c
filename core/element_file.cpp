#include "core/element_file.h"

#include "core/element_lines.h"

namespace celestrix {

void WriteElementFile(const Ref<BinaryStream>& stream, const Ref<StringArray>& lines, const ElementFileFormat& format) {
  const std::int32_t setCount = SetCount(lines);
  stream->LittleEndian(format.littleEndian);
  format.writeHeader(stream, setCount);
  WriteRecordData(stream, lines, setCount, stream->Position());
}

}  // namespace celestrix
