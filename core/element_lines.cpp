#include "core/element_lines.h"

#include <algorithm>

#include "services/base/background_task.h"

namespace celestrix {

namespace {

/// The slots of all lines, one after the other: each line with NUL bytes added up to the width. In one block, since
/// with one for each line a whole conversion takes 2.4 times as long.
String Slots(const Ref<StringArray>& lines) {
  const std::int32_t count = lines->UpperBound() + 1;
  return String::Build(std::uint64_t{kLineWidth} * static_cast<std::uint32_t>(count), [&](char* const room) {
    char* slot = room;
    for (std::int32_t i = 0; i < count; ++i, slot += kLineWidth) {
      const std::string_view line = lines->Get(i).Bytes();
      std::fill(slot + line.copy(slot, kLineWidth), slot + kLineWidth, '\0');
      RuntimeBackgroundTask(kLineWidth - static_cast<std::int32_t>(line.size()));
    }
    return static_cast<std::size_t>(slot - room);
  });
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
    if (RuntimeStringCompare(Trim(line), ""_s) == 0 || LenB(line) > kLineWidth) lines->Remove(i);
    RuntimeBackgroundTask();
  }
  const String slots = Slots(lines);
  std::size_t position = 0;
  for (std::int32_t i = 0; i <= lines->UpperBound(); ++i, position += kLineWidth)
    lines->Set(i, slots.Slice(position, kLineWidth));
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
