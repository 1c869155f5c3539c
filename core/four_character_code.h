#pragma once

#include "services/base/string.h"

namespace celestrix {

/// The 32-bit value of four ASCII characters, the first one most significant. A stream writes them in reading order if
/// it writes the most significant byte first, otherwise reversed.
inline std::int32_t FourCharacterCode(const String& c1, const String& c2, const String& c3, const String& c4) {
  return ((Asc(c1) * 256 + Asc(c2)) * 256 + Asc(c3)) * 256 + Asc(c4);
}

/// The type of a Celestrix element file in both formats: "pl12".
inline std::int32_t ElementFileType() { return FourCharacterCode("p"_s, "l"_s, "1"_s, "2"_s); }

}  // namespace celestrix
