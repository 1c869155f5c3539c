// The fuzzer: any bytes as a text file, through reading, splitting, normalising and both writers, compared with the
// model. `scripts/fuzz SECONDS` builds and runs it.
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

#include "core/element_lines.h"
#include "core/palm_database.h"
#include "core/pocket_pc_file.h"
#include "services/base/file_type.h"
#include "services/base/folder_item.h"
#include "tests/model.h"

namespace {

using namespace celestrix;
namespace fs = std::filesystem;

/// A folder of this process on the memory file system, if there is one.
const fs::path& Folder() {
  static const fs::path folder = [] {
    const fs::path memory = "/dev/shm";
    const fs::path made = (fs::is_directory(memory) ? memory : fs::temp_directory_path()) /
                          ("celestrix-fuzz-" + std::to_string(getpid()));
    fs::create_directory(made);
    std::atexit([] { fs::remove_all(Folder()); });
    return made;
  }();
  return folder;
}

std::string Read(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void Expect(const std::string& actual, const std::string& expected, const char* what) {
  if (actual == expected) return;
  std::cerr << what << " differs: " << actual.size() << " bytes, expected " << expected.size() << "\n";
  std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static FileType type;
  type.Name = "Fuzzed"_s;
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  const fs::path in = Folder() / "in.txt", out = Folder() / "out";
  std::ofstream(in, std::ios::binary) << bytes;

  const String text = ReplaceLineEndings(FolderItem(in).OpenAsTextFile()->ReadAll(), EndOfLine());
  const std::string expectedText = model::TextOfFile(bytes);
  Expect(std::string(text.Bytes()), expectedText, "text");

  const Ref<StringArray> lines = ElementLines(text);
  for (const bool palm : {true, false}) {
    const Ref<BinaryStream> stream = FolderItem(out).CreateBinaryFile(type);
    stream->LittleEndian(!palm);
    palm ? WritePalmDatabase(stream, lines) : WritePocketPcFile(stream, lines);
    stream->Close();
    Expect(Read(out), model::SavedFile(expectedText, palm), palm ? "Palm database" : "Pocket PC file");
  }
  return 0;
}
