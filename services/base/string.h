// String: an immutable sequence of UTF-8 bytes, and the string operations of the framework.
//
// Strings share their bytes. Copying, trimming and splitting make no copy of them: a String is a window
// (pointer and length) onto a counted block, or onto a literal, which needs no count.
//
//   block:  | references | end | limit | bytes ... (end) | room ... (limit) |
//
// Bytes before `end` never change; that is what makes sharing safe. Room behind it belongs to nobody
// yet, so a string that ends exactly there can be added to in place: the bytes that it had stay as
// they are for everybody who shares them. Adding a byte to the string that was made last therefore
// costs a store, not a copy.
//
// Counts are plain integers: the program has one thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

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
  static String Build(std::size_t capacity, const std::function<std::size_t(char*)>& fill);

  /// A string on bytes that live as long as the program, such as a literal's.
  static constexpr String OfStaticBytes(const char* data, std::size_t size) {
    return {nullptr, data, static_cast<std::int32_t>(size)};
  }

  String(const String& other) : block_(other.block_), data_(other.data_), size_(other.size_) { Share(); }
  String(String&& other) noexcept
      : block_(std::exchange(other.block_, nullptr)), data_(other.data_), size_(std::exchange(other.size_, 0)) {}
  String& operator=(const String& other) { return *this = String(other); }
  String& operator=(String&& other) noexcept {
    std::swap(block_, other.block_);
    std::swap(data_, other.data_);
    std::swap(size_, other.size_);
    return *this;
  }
  constexpr ~String() {
    if (block_ != nullptr && --block_->references == 0) Free(block_);
  }

  std::string_view Bytes() const { return {data_, static_cast<std::size_t>(size_)}; }

  /// The bytes from `begin` on, `size` of them at the most, shared with this string.
  String Slice(std::size_t begin, std::size_t size = kMaxSize) const;

  /// RuntimeAddString in place.
  String& operator+=(const String& second) {
    const std::string_view added = second.Bytes();
    if (!EndsAtRoomFor(added.size())) return *this = Sum(Bytes(), added);
    // Where the block ends, taken from this string: the processor would have to wait for the block's own word,
    // which the addition before has just written.
    char* end = const_cast<char*>(data_) + size_;
    if (added.size() == 1)
      *end = added.front();
    else
      added.copy(end, added.size());
    block_->end = end + added.size();
    size_ += second.size_;
    return *this;
  }

  friend std::int32_t LenB(const String& text) { return text.size_; }
  friend bool operator==(const String& a, const String& b) { return a.Bytes() == b.Bytes(); }

 private:
  struct Block {
    std::size_t references;
    char* end;
    char* limit;
    char* Bytes() { return reinterpret_cast<char*>(this + 1); }
    std::size_t Room() const { return static_cast<std::size_t>(limit - end); }
  };

  constexpr String(Block* block, const char* data, std::int32_t size) : block_(block), data_(data), size_(size) {}
  static Block* Allocate(std::size_t capacity);
  static void Free(Block* block);
  bool EndsAtRoomFor(std::size_t added) const {
    return block_ != nullptr && data_ + size_ == block_->end && added <= block_->Room();
  }
  static String Sum(std::string_view first, std::string_view second);
  void Share() const {
    if (block_ != nullptr) ++block_->references;
  }

  Block* block_ = nullptr;  // null for a literal and for the empty string
  const char* data_ = "";
  std::int32_t size_ = 0;
};

/// A literal as a String, without a copy.
constexpr String operator""_s(const char* data, std::size_t size) { return String::OfStaticBytes(data, size); }

/// The number of bytes of the string.
std::int32_t LenB(const String& text);

/// The bytes of the first followed by the bytes of the second. Raises RuntimeException where the result
/// would pass String::kMaxSize.
inline String RuntimeAddString(String first, const String& second) { return std::move(first += second); }

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
/// the user's locale; 0 when there is none. Words such as "nan" and "inf" are no numbers, and of "0x1"
/// only the 0 is one.
double Val(const String& text);

/// The number as an Int32, its fraction cut off; INT32_MIN for one that no Int32 holds.
std::int32_t RuntimeCvtReal64ToSInt32(double number);

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
