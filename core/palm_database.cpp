// Palm database: a header, a list of records, and the records. All integers have their most significant
// byte first.
//
//   offset         size      field
//   0              32        database name: "Celestrix Satellite", NUL bytes up to the field's end
//   32             2         attributes: backup (0x0008) and bundle (0x0800)
//   34             2         version: 3
//   36             4         creation date       the three dates are one fixed stamp, in seconds
//   40             4         modification date   since 1904-01-01: 2003-12-07 00:00:02
//   44             4         last backup date
//   48             4         modification number: 0
//   52             4         application info offset: 0, there is none
//   56             4         sort info offset: 0, there is none
//   60             4         type: "pl12"
//   64             4         creator: "RZQ4"
//   68             4         unique ID seed: 0
//   72             4         next record list ID: 0
//   76             2         number of records n
//   78             8 * n     record list, an entry per element set:
//     0            4           offset of the record in the file
//     4            1           attributes: 0
//     5            3           unique ID: 0
//   78 + 8 * n     213 * n   record data area (element_lines.h); record k is element set k
#include "core/palm_database.h"

#include "core/element_lines.h"
#include "core/four_character_code.h"
#include "services/base/background_task.h"

namespace celestrix {

namespace {

constexpr std::int32_t kNameFieldSize = 32;
constexpr std::int32_t kHeaderSize = 78;
constexpr std::int32_t kListEntrySize = 8;

constexpr std::int32_t kAttributes = 0x0808;
constexpr std::int32_t kVersion = 3;
constexpr auto kDateStamp = static_cast<std::int32_t>(0xBBF81E02);

void WriteRecordList(const Ref<BinaryStream>& stream, std::int32_t setCount) {
  std::uint32_t offset = kHeaderSize + kListEntrySize * static_cast<std::uint32_t>(setCount);
  for (std::int32_t k = 0; k < setCount; ++k) {
    stream->WriteLong(static_cast<std::int32_t>(offset));
    offset += kSetSize;
    stream->WriteLong(0);  // attributes and unique ID
    RuntimeBackgroundTask();
  }
}

}  // namespace

void WriteDatabaseName(const Ref<BinaryStream>& stream, const String& name) {
  stream->Write(RuntimeAddString(name, Chr(0)));
  if (stream->Position() > kNameFieldSize) {
    // The rest of the header will overwrite what has been written beyond the field.
    stream->Position(kNameFieldSize - 1);
    stream->WriteByte(0);
  }
  while (stream->Position() < kNameFieldSize) {
    stream->WriteByte(0);
    RuntimeBackgroundTask();
  }
}

void WritePalmHeader(const Ref<BinaryStream>& stream, std::int32_t setCount) {
  WriteDatabaseName(stream, "Celestrix Satellite"_s);
  stream->WriteShort(kAttributes);
  stream->WriteShort(kVersion);
  for (int date = 0; date < 3; ++date) stream->WriteLong(kDateStamp);
  stream->WriteLong(0);  // modification number
  stream->WriteLong(0);  // application info offset
  stream->WriteLong(0);  // sort info offset
  stream->WriteLong(ElementFileType());
  stream->WriteLong(FourCharacterCode("R"_s, "Z"_s, "Q"_s, "4"_s));
  stream->WriteLong(0);  // unique ID seed
  stream->WriteLong(0);  // next record list ID
  stream->WriteShort(setCount);
  WriteRecordList(stream, setCount);
}

}  // namespace celestrix
