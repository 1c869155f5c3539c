// String: an immutable sequence of UTF-8 bytes, and the string operations of the framework.
//
// Strings share their bytes. Copying, trimming and splitting make no copy of them: a String is a pointer and a length
// within a block with a reference count, or within a literal, which needs none.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "services/base/ref.h"

namespace celestrix {

class StringArray;

class String {
 public:
  /// The longest string, in bytes: LenB counts in an Int32.
  static constexpr std::size_t kMaxSize = INT32_MAX;

  /// The empty string.
  String() = default;

  /// Copies the bytes. Raises RuntimeException beyond kMaxSize.
  explicit String(std::string_view bytes);

  /// A string of at most `capacity` bytes: `fill` is given uninitialised room for them and returns how
  /// many it has written. Raises RuntimeException beyond kMaxSize.
  static String Build(std::uint64_t capacity, const std::function<std::size_t(char*)>& fill);

  /// A string of bytes that live as long as the program, such as a literal's.
  static String OfStaticBytes(const char* data, std::size_t size) {
    return {{std::shared_ptr<const char>(), data}, size};
  }

  std::string_view Bytes() const { return {data_.get(), static_cast<std::size_t>(size_)}; }

  /// The bytes from `begin` on, at most `size` of them, shared with this string.
  String Slice(std::size_t begin, std::size_t size = kMaxSize) const {
    const std::string_view slice = Bytes().substr(begin, size);
    return {{data_, slice.data()}, slice.size()};
  }

  /// The number of bytes.
  friend std::int32_t LenB(const String& text) { return text.size_; }
  friend bool operator==(const String& a, const String& b) { return a.Bytes() == b.Bytes(); }

 private:
  String(std::shared_ptr<const char> data, std::size_t size)
      : data_(std::move(data)), size_(static_cast<std::int32_t>(size)) {}

  std::shared_ptr<const char> data_;  // the first byte; keeps its block alive
  std::int32_t size_ = 0;
};

/// A literal as a String, without a copy.
inline String operator""_s(const char* data, std::size_t size) { return String::OfStaticBytes(data, size); }

/// The bytes of the first followed by the bytes of the second. Raises RuntimeException if the result
/// would exceed String::kMaxSize.
String RuntimeAddString(const String& first, const String& second);

/// 0 when the strings are equal, byte for byte; otherwise the sign of their order by bytes.
inline std::int32_t RuntimeStringCompare(const String& a, const String& b) { return a.Bytes().compare(b.Bytes()); }

/// The pieces of the text between occurrences of the delimiter, in order, empty ones included. A text
/// without the delimiter, even an empty one, is one piece. The delimiter must not be empty.
Ref<StringArray> Split(const String& text, const String& delimiter);

/// The string without white space at either end. White space is the six ASCII characters (space, tab,
/// line feed, vertical tab, form feed, carriage return) and the spaces found in text copied from web pages: the
/// no-break space, those from U+2000 on, the ideographic space and similar ones.
String Trim(const String& text);

/// The code of the first character of an ASCII string; 0 for the empty one.
std::int32_t Asc(const String& text);

/// A one-character string of an ASCII code, 0 to 127. Chr(0) is one byte, 0x00.
String Chr(std::int32_t code);

/// The decimal number at the start of the text, after white space, read with a decimal point whatever
/// the user's locale; 0 when there is none, none that a double can hold, or an exponent without digits ("1e").
/// Words such as "nan" and "inf" are not numbers, and "0x1" is 0.
double Val(const String& text);

/// The number as an Int32, its fraction cut off; INT32_MIN if it does not fit.
std::int32_t RuntimeCvtReal64ToSInt32(double number);

/// The text with every occurrence of one string replaced by another. A text without any is returned as it is, sharing
/// its bytes. `from` must not be empty.
String ReplaceAll(const String& text, const String& from, const String& to);

/// The text with every line ending (CR LF, CR alone, LF alone) replaced by the given one. A text that
/// has no other line endings is returned as it is, sharing its bytes.
String ReplaceLineEndings(const String& text, const String& lineEnding);

/// The line ending of the program on every platform: one line feed. The field puts it between its lines, so
/// the text is split at it when it is saved.
class EndOfLine {
 public:
  operator String() const { return "\n"_s; }
};

}  // namespace celestrix
