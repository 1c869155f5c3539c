// Pocket PC file: four words and the element sets. All words have their least significant byte first.
//
//   offset     size      field
//   0          4         header constant: 24
//   4          4         type code "pl12", which this byte order turns into "21lp", as it must
//   8          4         number of element sets n
//   12         4         element set size: 213
//   16         213 * n   record data area (element_lines.h)
#include "core/pocket_pc_file.h"

#include "core/element_lines.h"
#include "core/four_character_code.h"

namespace celestrix {

namespace {

constexpr std::int32_t kHeaderConstant = 24;

}  // namespace

void WritePocketPcHeader(const Ref<BinaryStream>& stream, std::int32_t setCount) {
  stream->WriteLong(kHeaderConstant);
  stream->WriteLong(ElementFileType());
  stream->WriteLong(setCount);
  stream->WriteLong(kSetSize);
}

}  // namespace celestrix
