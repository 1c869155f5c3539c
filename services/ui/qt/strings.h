// Between the framework's strings and Qt's. Every character of one is the same character in the other, a mark
// (U+FEFF) at the start included.
#pragma once

#include <QString>

#include "services/base/string.h"

namespace celestrix {

QString ToQString(std::string_view utf8);
inline QString ToQString(const String& text) { return ToQString(text.Bytes()); }

/// A half surrogate pair, which UTF-8 cannot hold, becomes the replacement character. Raises RuntimeException where
/// the result would pass String::kMaxSize.
String FromQString(QStringView text);

}  // namespace celestrix
