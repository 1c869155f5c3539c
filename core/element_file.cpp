#include "core/element_file.h"

#include "core/element_lines.h"
#include "core/palm_database.h"
#include "core/pocket_pc_file.h"

namespace celestrix {

void WriteElementFile(const Ref<BinaryStream>& stream, const Ref<StringArray>& lines, ElementFileFormat format) {
  const bool palm = format == ElementFileFormat::kPalmDatabase;
  const std::int32_t setCount = SetCount(lines);
  stream->LittleEndian(!palm);
  const auto writeHeader = palm ? WritePalmHeader : WritePocketPcHeader;
  writeHeader(stream, setCount);
  WriteRecordData(stream, lines, setCount, stream->Position());
}

}  // namespace celestrix
