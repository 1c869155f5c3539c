// Between the framework's strings and the toolkit's.
#pragma once

#include <QString>

#include "services/base/string.h"

namespace celestrix {

inline QString ToQString(const String& text) { return QString::fromUtf8(text.Bytes().data(), LenB(text)); }

/// A half surrogate pair, which UTF-8 cannot hold, becomes the replacement character.
String FromQString(QStringView text);

}  // namespace celestrix
