// String: an immutable sequence of UTF-8 bytes, and the string operations of the framework.
//
// Strings share their bytes. Copying, trimming and splitting make no copy of them: a String is a window
// (pointer and length) onto a counted block, or onto a literal, which needs no count.
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
  ///
  /// Short strings are laid one behind the other into one block, which all of them keep alive: one allocation
  /// serves hundreds of lines. With a block for each line, a whole conversion takes 1.5 times as long.
  explicit String(std::string_view bytes);

  /// A string of at most `capacity` bytes: `fill` is given uninitialised room for them and returns how
  /// many it has written. Raises RuntimeException beyond kMaxSize.
  static String Build(std::size_t capacity, const std::function<std::size_t(char*)>& fill);

  /// A string on bytes that live as long as the program, such as a literal's.
  static String OfStaticBytes(const char* data, std::size_t size) { return {{Block(), data}, size}; }

  std::string_view Bytes() const { return {data_.get(), static_cast<std::size_t>(size_)}; }

  /// The bytes from `begin` on, `size` of them at the most, shared with this string.
  String Slice(std::size_t begin, std::size_t size = kMaxSize) const;

  friend std::int32_t LenB(const String& text) { return text.size_; }
  friend bool operator==(const String& a, const String& b) { return a.Bytes() == b.Bytes(); }

 private:
  using Block = std::shared_ptr<char[]>;

  String(std::shared_ptr<const char> data, std::size_t size)
      : data_(std::move(data)), size_(static_cast<std::int32_t>(size)) {}
  static Block Allocate(std::size_t capacity);
  static String InSharedBlock(std::string_view bytes);

  std::shared_ptr<const char> data_;  // where the window begins; holds the block that it looks onto
  std::int32_t size_ = 0;
};

/// A literal as a String, without a copy.
inline String operator""_s(const char* data, std::size_t size) { return String::OfStaticBytes(data, size); }

/// The number of bytes of the string.
std::int32_t LenB(const String& text);

/// The bytes of the first followed by the bytes of the second. Raises RuntimeException where the result
/// would pass String::kMaxSize.
String RuntimeAddString(const String& first, const String& second);

/// 0 when the strings are equal, byte for byte; otherwise the sign of their order by bytes.
std::int32_t RuntimeStringCompare(const String& a, const String& b);

/// The pieces of the text between occurrences of the delimiter, in order, empty ones included. A text
/// without the delimiter is one piece, also the empty text. The delimiter must not be empty.
Ref<StringArray> Split(const String& text, const String& delimiter);

/// The string without white space at either end. White space is the six ASCII characters (space, tab,
/// line feed, vertical tab, form feed, carriage return) and the blanks that come along with text
/// copied from web pages: no-break space, the U+2000 block's spaces, the ideographic space and their kin.
String Trim(const String& text);

/// The code of the first character of an ASCII string; 0 for the empty one.
std::int32_t Asc(const String& text);

/// A one-character string of an ASCII code, 0 to 127. Chr(0) is one byte, 0x00.
String Chr(std::int32_t code);

/// The decimal number at the start of the text, after white space, read with a decimal point whatever
/// the user's locale; 0 when there is none, or none that a double can hold. An exponent without its number counts
/// for nothing: "1e" is 1. Words such as "nan" and "inf" are no numbers, and of "0x1" only the 0 is one.
double Val(const String& text);

/// The number as an Int32, its fraction cut off; INT32_MIN for one that no Int32 holds.
std::int32_t RuntimeCvtReal64ToSInt32(double number);

/// The text with every occurrence of one string replaced by another. A text without any is returned as it is, sharing
/// its bytes. `from` must not be empty.
String ReplaceAll(const String& text, const String& from, const String& to);

/// The text with every line ending (CR LF, CR alone, LF alone) replaced by the given one. A text that
/// has no other is returned as it is, sharing its bytes.
String ReplaceLineEndings(const String& text, const String& lineEnding);

/// The line ending of the program on every platform: one line feed. It is what the field puts between
/// its lines, and so what the text is split on when it is saved.
class EndOfLine {
 public:
  operator String() const { return "\n"_s; }
};

}  // namespace celestrix
