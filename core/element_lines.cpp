#include "core/element_lines.h"

#include <array>

#include "services/base/background_task.h"

namespace celestrix {

namespace {

/// The line with NUL bytes added up to the width of a slot.
String Padded(const String& line) {
  std::array<char, kLineWidth> slot;
  std::size_t size = line.Bytes().copy(slot.data(), slot.size());
  while (size < slot.size()) {
    slot[size++] = '\0';
    RuntimeBackgroundTask();
  }
  return String({slot.data(), slot.size()});
}

}  // namespace

Ref<StringArray> ElementLines(const String& text) {
  Ref<StringArray> lines = Split(text, EndOfLine());
  Normalise(lines);
  return lines;
}

void Normalise(const Ref<StringArray>& lines) {
  // From the last line to the first: a removal never moves a line that is still to be visited.
  for (std::int32_t i = lines->UpperBound(); i >= 0; --i) {
    const String& line = lines->Get(i);
    if (RuntimeStringCompare(Trim(line), ""_s) == 0 || LenB(line) > kLineWidth)
      lines->Remove(i);
    else if (LenB(line) < kLineWidth)
      lines->Set(i, Padded(line));
    RuntimeBackgroundTask();
  }
}

std::int32_t SetCount(const Ref<StringArray>& lines) { return (lines->UpperBound() + 1) / kLinesPerSet; }

void WriteRecordData(const Ref<BinaryStream>& stream, const Ref<StringArray>& lines, std::int32_t setCount,
                     std::uint64_t dataStart) {
  std::uint64_t position = dataStart;
  for (std::int32_t i = 0; i < kLinesPerSet * setCount; ++i) {
    stream->Position(position);
    stream->Write(lines->Get(i));
    position += kLineWidth;
    RuntimeBackgroundTask();
  }
}

}  // namespace celestrix
