// The fuzzer: takes any bytes as a text file through decoding, splitting, normalising and both formats, and compares
// the results with the model. `fuzz/search SECONDS` builds and runs it.
#include <sys/mman.h>

#include <cstdlib>
#include <iostream>

#include "app/file_types.h"
#include "core/element_file.h"
#include "core/element_lines.h"
#include "services/base/folder_item.h"
#include "services/base/text_decoder.h"
#include "tests/model.h"
#include "tests/same_file.h"

namespace {

using namespace celestrix;

/// The file that is written again and again. It is in memory and has no name, so nothing can be left behind.
const QString output = QString("/proc/self/fd/%1").arg(memfd_create("output", MFD_CLOEXEC));

QByteArray WrittenFile(const Ref<StringArray>& lines, const ElementFileFormat& format) {
  const Ref<BinaryStream> stream = FolderItem(output.toStdString()).CreateBinaryFile(*format.fileType());
  WriteElementFile(stream, lines, format);
  stream->Close();
  return ReadFile(output);
}

/// Ends the search where something differs.
void ExpectNone(const QByteArray& difference) {
  if (difference.isEmpty()) return;
  std::cerr << difference.constData() << "\n";
  std::abort();
}

}  // namespace

// Long stack traces of allocations and a large quarantine of freed memory would take a third of the time, for nothing.
extern "C" const char* __asan_default_options() { return "malloc_context_size=2:quarantine_size_mb=16"; }

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
  FileTypes1::_Initialize();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  // In a block of its own, so that the sanitizer notices a read beyond its end.
  const String file = String::Build(size, [&](char* room) { return bytes.toStdString().copy(room, size); });
  const String text = ReplaceLineEndings(DecodeText(file), EndOfLine());
  const QString expected = model::TextOfFile(bytes);
  const QByteArray decoded(text.Bytes().data(), LenB(text));
  if (decoded != expected.toUtf8())
    ExpectNone("text " + decoded.toHex(' ') + ", expected " + expected.toUtf8().toHex(' '));

  const Ref<StringArray> lines = ElementLines(text);
  ExpectNone(Difference(WrittenFile(lines, kElementFileFormats[0]), model::SavedFile(expected, true)));
  ExpectNone(Difference(WrittenFile(lines, kElementFileFormats[1]), model::SavedFile(expected, false)));
  return 0;
}
