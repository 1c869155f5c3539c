// Element lines: how a text of satellite elements becomes lines of a fixed width.
//
// The content of a line is never examined. What counts is its width: every line that is kept fills a line
// slot of 71 bytes, and three consecutive kept lines make one element set, the unit of one record.
//
//   record data area, from the data start that the file's header leaves:
//
//   offset            size   content
//   0                 71     line 0: name of the satellite of set 0, NUL bytes up to the slot's end
//   71                71     line 1: element line 1
//   142               71     line 2: element line 2
//   213 * k           213    element set k, likewise
//
// Nothing stands between slots or behind the last one.
#pragma once

#include "services/base/binary_stream.h"
#include "services/base/string_array.h"

namespace celestrix {

inline constexpr std::int32_t kLineWidth = 71;  // bytes
inline constexpr std::int32_t kLinesPerSet = 3;
inline constexpr std::int32_t kSetSize = kLinesPerSet * kLineWidth;  // bytes

/// Splits the field's text at EndOfLine, and at nothing else, and normalises the lines.
Ref<StringArray> ElementLines(const String& text);

/// Brings the lines to their width, in place: removes blank lines and lines longer than 71 bytes, and adds
/// NUL bytes to the shorter ones. Yields once per line and once per added byte.
///
/// Blankness is judged on the trimmed line, length on the line as it is: white space at a line's ends is
/// kept, and counts, so that it can push a line past the width.
void Normalise(const Ref<StringArray>& lines);

/// The number of whole element sets in normalised lines. The one or two lines left over belong to none.
std::int32_t SetCount(const Ref<StringArray>& lines);

/// Writes the record data area: the lines of the first `setCount` element sets, each into its slot. Yields once per
/// line.
void WriteRecordData(const Ref<BinaryStream>& stream, const Ref<StringArray>& lines, std::int32_t setCount,
                     std::uint64_t dataStart);

}  // namespace celestrix
