// The fuzzer: any bytes as a text file, through decoding, splitting, normalising and both formats, compared with the
// model. `scripts/fuzz SECONDS` builds and runs it.
#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>
#include <iostream>

#include "app/file_types.h"
#include "core/element_file.h"
#include "core/element_lines.h"
#include "services/base/folder_item.h"
#include "services/base/text_decoder.h"
#include "tests/model.h"

namespace {

using namespace celestrix;

/// The file that is written, again and again. It is memory and has no name, so nothing can stay behind.
const int output = memfd_create("output", MFD_CLOEXEC);

std::string WrittenFile(const Ref<StringArray>& lines, ElementFileFormat format) {
  static const FolderItem file("/proc/self/fd/" + std::to_string(output));
  const Ref<BinaryStream> stream = file.CreateBinaryFile(*FileTypes1::PDBFile());
  WriteElementFile(stream, lines, format);
  stream->Close();
  std::string bytes(static_cast<std::size_t>(lseek(output, 0, SEEK_END)), '?');
  if (pread(output, bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size())) std::abort();
  return bytes;
}

void Expect(const std::string& actual, const std::string& expected, const char* what) {
  if (actual == expected) return;
  std::cerr << what << " differs: " << actual.size() << " bytes, expected " << expected.size() << "\n";
  std::abort();
}

}  // namespace

// Where memory came from, and a long memory of what has been freed, take a third of the time and help nobody here.
extern "C" const char* __asan_default_options() { return "malloc_context_size=2:quarantine_size_mb=16"; }

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
  FileTypes1::_Initialize();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  // In a block of its own: the sanitizer sees a step beyond its end.
  const String file = String::Build(size, [&](char* room) { return bytes.copy(room, size); });
  const String text = ReplaceLineEndings(DecodeText(file), EndOfLine());
  const QString expectedText = model::TextOfFile(QByteArray::fromStdString(bytes));
  Expect(std::string(text.Bytes()), expectedText.toStdString(), "text");

  const Ref<StringArray> lines = ElementLines(text);
  const std::string palm = model::SavedFile(expectedText, true).toStdString();
  const std::string pocketPc = model::SavedFile(expectedText, false).toStdString();
  Expect(WrittenFile(lines, ElementFileFormat::kPalmDatabase), palm, "Palm database");
  Expect(WrittenFile(lines, ElementFileFormat::kPocketPcFile), pocketPc, "Pocket PC file");
  return 0;
}
