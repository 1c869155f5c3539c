// bench_encode TEXT-FILE OUTPUT [FORMAT]: makes a text into a file as the window's Browse and Save do, without the
// window. FORMAT is an index of kElementFileFormats; without it, the file is a Palm database. For measuring the
// conversion as a whole process, and for comparing its files.
#include <cstdio>
#include <cstdlib>
#include <exception>

#include "core/element_file.h"
#include "core/element_lines.h"
#include "services/base/folder_item.h"

int main(int argc, char** argv) {
  using namespace celestrix;
  const std::size_t index = argc > 3 ? std::strtoul(argv[3], nullptr, 10) : 0;
  if (argc < 3 || index >= std::size(kElementFileFormats)) return 2;
  const ElementFileFormat& format = kElementFileFormats[index];
  try {
    FileTypes1::_Initialize();
    const Ref<TextInputStream> input = FolderItem(argv[1]).OpenAsTextFile();
    const String text = ReplaceLineEndings(input->ReadAll(), EndOfLine());
    const Ref<BinaryStream> stream = FolderItem(argv[2]).CreateBinaryFile(*format.fileType());
    WriteElementFile(stream, ElementLines(text), format);
    stream->Close();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
