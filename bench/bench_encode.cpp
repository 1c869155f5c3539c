// bench_encode TEXT-FILE OUTPUT pdb|ppc: does with a text what the window's Browse and Save do, without the window.
// For measuring the conversion as a whole process.
#include <cstdio>
#include <exception>
#include <string_view>

#include "app/file_types.h"
#include "core/element_file.h"
#include "core/element_lines.h"
#include "services/base/folder_item.h"

int main(int argc, char** argv) {
  using namespace celestrix;
  const std::string_view format = argc == 4 ? argv[3] : "";
  if (format != "pdb" && format != "ppc") {
    std::fputs("usage: bench_encode TEXT-FILE OUTPUT pdb|ppc\n", stderr);
    return 2;
  }
  try {
    FileTypes1::_Initialize();
    const Ref<TextInputStream> input = FolderItem(argv[1]).OpenAsTextFile();
    const String text = ReplaceLineEndings(input->ReadAll(), EndOfLine());
    const Ref<BinaryStream> stream = FolderItem(argv[2]).CreateBinaryFile(*FileTypes1::PDBFile());
    WriteElementFile(stream, ElementLines(text),
                     format == "pdb" ? ElementFileFormat::kPalmDatabase : ElementFileFormat::kPocketPcFile);
    stream->Close();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
