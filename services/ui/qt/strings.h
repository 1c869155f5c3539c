// Conversions between the framework's strings and Qt's. They keep every character, even a byte order mark (U+FEFF) at
// the start.
#pragma once

#include <QString>

#include "services/base/string.h"

namespace celestrix {

QString ToQString(std::string_view utf8);
inline QString ToQString(const String& text) { return ToQString(text.Bytes()); }

/// An unpaired surrogate, which UTF-8 cannot represent, becomes the replacement character. Raises RuntimeException if
/// the result would exceed String::kMaxSize.
String FromQString(QStringView text);

}  // namespace celestrix
