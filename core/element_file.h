// The output formats, and how element lines become a file in one of them.
#pragma once

#include "app/file_types.h"
#include "core/palm_database.h"
#include "core/pocket_pc_file.h"
#include "services/base/string_array.h"

namespace celestrix {

struct ElementFileFormat {
  Ref<FileType> (*fileType)();
  std::string_view proposedName;
  bool littleEndian;
  void (*writeHeader)(const Ref<BinaryStream>& stream, std::int32_t setCount);
};

/// A format's index is the number of its radio button in the set `FileFormat`, and what the program remembers.
inline constexpr ElementFileFormat kElementFileFormats[] = {
    {FileTypes1::PDBFile, "celestrix_satellites.pdb", false, WritePalmHeader},
    {FileTypes1::PPCFile, "celestrix_satellites.ppc", true, WritePocketPcHeader},
};

/// Writes normalised lines as a complete file of that format to an empty stream, which stays open. Sets the stream's
/// byte order to that of the format.
void WriteElementFile(const Ref<BinaryStream>& stream, const Ref<StringArray>& lines, const ElementFileFormat& format);

}  // namespace celestrix
