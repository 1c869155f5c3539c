// yardstick TEXT-FILE OUTPUT: the least work that the conversion to a Palm database allows, for one well-formed
// text: map the file, find the lines, copy each to its place, write once. It handles no blank or over-long line,
// no encoding, no line ending but LF, and shares no code with the program. bench/compare measures against it.
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace {

constexpr std::size_t kHeaderSize = 78, kEntrySize = 8, kWidth = 71, kLinesPerSet = 3;

unsigned char* PutBigEndian(unsigned char* out, std::uint32_t value) {
  for (int shift = 24; shift >= 0; shift -= 8) *out++ = static_cast<unsigned char>(value >> shift);
  return out;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  const int in = open(argv[1], O_RDONLY);
  struct stat status {};
  if (in < 0 || fstat(in, &status) != 0) return 1;
  const auto size = static_cast<std::size_t>(status.st_size);
  const auto* text = static_cast<const char*>(mmap(nullptr, size, PROT_READ, MAP_PRIVATE | MAP_POPULATE, in, 0));
  if (text == MAP_FAILED) return 1;

  std::size_t lines = 0;
  const char* const textEnd = text + size;
  for (const char* at = text; at < textEnd; ++lines) {
    const void* newline = std::memchr(at, '\n', static_cast<std::size_t>(textEnd - at));
    at = newline != nullptr ? static_cast<const char*>(newline) + 1 : textEnd;
  }

  const std::size_t sets = lines / kLinesPerSet;
  const std::size_t dataStart = kHeaderSize + kEntrySize * sets;
  const std::size_t outputSize = dataStart + kWidth * kLinesPerSet * sets;
  auto* output = static_cast<unsigned char*>(std::calloc(outputSize, 1));
  std::memcpy(output, "Celestrix Satellite", 19);
  unsigned char* field = PutBigEndian(output + 32, 0x08080003);
  for (int date = 0; date < 3; ++date) field = PutBigEndian(field, 0xBBF81E02);
  std::memcpy(output + 60, "pl12RZQ4", 8);
  PutBigEndian(output + 74, static_cast<std::uint32_t>(sets & 0xFFFF));
  for (std::size_t k = 0; k < sets; ++k)
    PutBigEndian(output + kHeaderSize + kEntrySize * k,
                 static_cast<std::uint32_t>(dataStart + kWidth * kLinesPerSet * k));

  unsigned char* slot = output + dataStart;
  for (const char* at = text; slot < output + outputSize; slot += kWidth) {
    const void* newline = std::memchr(at, '\n', static_cast<std::size_t>(textEnd - at));
    const char* lineEnd = newline != nullptr ? static_cast<const char*>(newline) : textEnd;
    std::memcpy(slot, at, static_cast<std::size_t>(lineEnd - at));
    at = lineEnd + 1;
  }

  const int out = open(argv[2], O_WRONLY | O_CREAT | O_TRUNC, 0666);
  return out >= 0 && write(out, output, outputSize) == static_cast<ssize_t>(outputSize) ? 0 : 1;
}
