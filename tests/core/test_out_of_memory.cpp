// A conversion for which there is not enough memory.
#include <new>

#include "core/element_file.h"
#include "core/element_lines.h"
#include "services/base/folder_item.h"
#include "tests/files.h"
#include "tests/model.h"

using namespace celestrix;

/// How many allocations may still be made. It replaces the C++ library's, which also its other forms call.
static int allocationsLeft = INT_MAX;

void* operator new(std::size_t size, std::align_val_t alignment) {
  void* memory = nullptr;
  if (allocationsLeft-- <= 0 || posix_memalign(&memory, static_cast<std::size_t>(alignment), size) != 0)
    throw std::bad_alloc();
  return memory;
}
void* operator new(std::size_t size) { return ::operator new(size, std::align_val_t(alignof(std::max_align_t))); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::align_val_t) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept { std::free(memory); }

class TestOutOfMemory : public QObject {
  Q_OBJECT

 private slots:
  // Each allocation of a conversion in turn is the first for which there is no memory.
  void theNextConversionIsWhole() {
    FileTypes1::_Initialize();
    const QTemporaryDir folder;
    const QByteArray text = QByteArray("odd\r\n\r\neven\r\n").repeated(500), file = folder.filePath("file").toUtf8();
    const auto convert = [&](int allocations) {
      allocationsLeft = allocations;
      const String lines = ReplaceLineEndings(String({text.data(), std::size_t(text.size())}), EndOfLine());
      const Ref<BinaryStream> stream = FolderItem(file.data()).CreateBinaryFile(*FileTypes1::PDBFile());
      WriteElementFile(stream, ElementLines(lines), kElementFileFormats[0]);
    };
    for (QByteArray error; error != "no error"; allocationsLeft = INT_MAX) {
      static int allocations = 0;
      error = ErrorOf([&] { convert(allocations++); });
      convert(INT_MAX);
      QCOMPARE(Difference(ReadFile(file), model::SavedFile(QString(text).remove('\r'), true)), "");
    }
  }
};

QTEST_APPLESS_MAIN(TestOutOfMemory)
#include "test_out_of_memory.moc"
