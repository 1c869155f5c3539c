// How the bytes of a text file become text.
#pragma once

#include "services/base/string.h"

namespace celestrix {

/// The bytes of a text file as UTF-8 text:
///
///   first bytes         read as
///   EF BB BF            like others; the mark is not part of the text
///   FF FE               UTF-16, least significant byte first; the mark is not part of the text
///   FE FF               UTF-16, most significant byte first; likewise
///   others              UTF-8 if all of it is valid, else Windows-1252
///
/// No content fails; RuntimeException is raised only if the text would exceed String::kMaxSize. A surrogate without its
/// partner, or half a UTF-16 unit at the end, becomes U+FFFD; the five bytes that Windows-1252 leaves undefined become
/// the control characters of the same code. Text that is UTF-8 already shares the bytes of the argument.
String DecodeText(const String& bytes);

}  // namespace celestrix
