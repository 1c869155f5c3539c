// Element lines: how a text of satellite elements becomes lines of a fixed width.
//
// The content of a line is never examined. What counts is its width: every line that is kept fills a line
// slot of 71 bytes, and three consecutive kept lines make one element set, the unit of one record.
//
//   record data area, which begins where the file's header ends, at the data start:
//
//   offset            size   content
//   0                 71     line 0: name of the satellite of set 0, NUL bytes up to the slot's end
//   71                71     line 1: element line 1
//   142               71     line 2: element line 2
//   213 * k           213    element set k, likewise
//
// There is nothing between slots or after the last one.
#pragma once

#include "services/base/binary_stream.h"
#include "services/base/string_array.h"

namespace celestrix {

inline constexpr std::int32_t kLineWidth = 71;  // bytes
inline constexpr std::int32_t kLinesPerSet = 3;
inline constexpr std::int32_t kSetSize = kLinesPerSet * kLineWidth;  // bytes

/// Splits the field's text at EndOfLine, and at nothing else, and normalises the lines.
Ref<StringArray> ElementLines(const String& text);

/// Makes all lines 71 bytes wide, in place: removes blank lines and lines longer than 71 bytes, and adds NUL bytes to
/// the shorter ones. Counts one pass (background_task.h) per line and per added byte. Raises RuntimeException if they
/// do not fit into one String, from 30 million lines on.
///
/// Whether a line is blank is judged after trimming, its length before: white space at either end is kept, and can make
/// a line too long.
void Normalise(const Ref<StringArray>& lines);

/// The number of whole element sets in normalised lines. The one or two lines left over belong to none.
std::int32_t SetCount(const Ref<StringArray>& lines);

/// Writes the record data area: the lines of the first `setCount` element sets, each into its slot. Counts one pass per
/// line.
void WriteRecordData(const Ref<BinaryStream>& stream, const Ref<StringArray>& lines, std::int32_t setCount,
                     std::uint64_t dataStart);

}  // namespace celestrix
