// bench_encode TEXT-FILE OUTPUT pdb|ppc: what the window's Browse and Save do with a text, without the window.
// For measuring the conversion as a whole process.
#include <cstdio>
#include <exception>
#include <string_view>

#include "core/element_lines.h"
#include "core/palm_database.h"
#include "core/pocket_pc_file.h"
#include "services/base/file_type.h"
#include "services/base/folder_item.h"

namespace {

using namespace celestrix;

void Encode(const char* textFile, const char* output, bool palm) {
  FileType type;
  type.Name = "Output"_s;
  const Ref<TextInputStream> input = FolderItem(textFile).OpenAsTextFile();
  const String text = ReplaceLineEndings(input->ReadAll(), EndOfLine());
  const Ref<BinaryStream> stream = FolderItem(output).CreateBinaryFile(type);
  stream->LittleEndian(!palm);
  const Ref<StringArray> lines = ElementLines(text);
  if (palm)
    WritePalmDatabase(stream, lines);
  else
    WritePocketPcFile(stream, lines);
  stream->Close();
}

}  // namespace

int main(int argc, char** argv) {
  const std::string_view format = argc == 4 ? argv[3] : "";
  if (format != "pdb" && format != "ppc") {
    std::fputs("usage: bench_encode TEXT-FILE OUTPUT pdb|ppc\n", stderr);
    return 2;
  }
  try {
    Encode(argv[1], argv[2], format == "pdb");
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
