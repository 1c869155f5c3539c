#include "services/base/text_decoder.h"

#include <array>
#include <bit>

namespace celestrix {

namespace {

constexpr char32_t kReplacementCharacter = 0xFFFD;

/// What the bytes 0x80 to 0x9F of Windows-1252 stand for; all others stand for the code point of their own number.
constexpr std::u32string_view kWindows1252From80 = U"€\u0081‚ƒ„…†‡ˆ‰Š‹Œ\u008DŽ\u008F\u0090‘’“”•–—˜™š›œ\u009DžŸ";

unsigned char At(std::string_view bytes, std::size_t index) { return static_cast<unsigned char>(bytes[index]); }

bool IsHighSurrogate(char32_t unit) { return unit >> 10 == 0xD800 >> 10; }
bool IsLowSurrogate(char32_t unit) { return unit >> 10 == 0xDC00 >> 10; }
bool IsSurrogate(char32_t unit) { return IsHighSurrogate(unit) || IsLowSurrogate(unit); }

/// How many bytes follow the first one in the character's UTF-8 form.
std::size_t BytesBehindFirst(char32_t c) { return std::size_t{c >= 0x80} + (c >= 0x800) + (c >= 0x10000); }

/// The index of the first byte from `begin` on that is not ASCII.
std::size_t FindNonAscii(std::string_view text, std::size_t begin) {
  // Without an exit in the middle of the inner loop, it can be vectorised; byte by byte, a whole conversion takes 1.1
  // times as long.
  constexpr std::size_t kStep = 64;
  for (; begin + kStep <= text.size(); begin += kStep) {
    unsigned char seen = 0;
    for (std::size_t i = 0; i < kStep; ++i) seen |= At(text, begin + i);
    if (seen >= 0x80) break;
  }
  while (begin < text.size() && At(text, begin) < 0x80) ++begin;
  return begin;
}

/// The size of the character at the start of the text, which is not ASCII; 0 if it is not valid UTF-8.
std::size_t SizeOfFirstCharacter(std::string_view text) {
  const auto size = static_cast<std::size_t>(std::countl_one(At(text, 0)));
  if (size < 2 || size > 4 || size > text.size()) return 0;
  char32_t c = At(text, 0) & (0x7FU >> size);
  for (std::size_t i = 1; i < size; ++i) {
    if ((At(text, i) & 0xC0) != 0x80) return 0;
    c = c << 6 | (At(text, i) & 0x3F);
  }
  return size == 1 + BytesBehindFirst(c) && !IsSurrogate(c) && c <= 0x10FFFF ? size : 0;
}

bool IsValidUtf8(std::string_view text) {
  for (std::size_t at = 0; (at = FindNonAscii(text, at)) < text.size();) {
    const std::size_t size = SizeOfFirstCharacter(text.substr(at));
    if (size == 0) return false;
    at += size;
  }
  return true;
}

/// Appends the character's UTF-8 form.
void PutUtf8(std::string& out, char32_t c) {
  constexpr std::array<char32_t, 4> kFirstByteMarks = {0, 0xC0, 0xE0, 0xF0};  // by how many bytes follow
  std::size_t left = BytesBehindFirst(c);
  out += static_cast<char>(kFirstByteMarks[left] | c >> 6 * left);
  while (left-- > 0) out += static_cast<char>(0x80 | (c >> 6 * left & 0x3F));
}

String DecodeUtf16(std::string_view bytes, bool littleEndian) {
  const std::size_t units = bytes.size() / 2;
  const auto unitAt = [&](std::size_t i) -> char32_t {
    const unsigned first = At(bytes, 2 * i), second = At(bytes, 2 * i + 1);
    return littleEndian ? second << 8 | first : first << 8 | second;
  };
  std::string text;
  for (std::size_t i = 0; i < units; ++i) {
    char32_t c = unitAt(i);
    if (IsHighSurrogate(c) && i + 1 < units && IsLowSurrogate(unitAt(i + 1)))
      c = 0x10000 + ((c & 0x3FF) << 10) + (unitAt(++i) & 0x3FF);
    else if (IsSurrogate(c))
      c = kReplacementCharacter;
    PutUtf8(text, c);
  }
  if (bytes.size() % 2 != 0) PutUtf8(text, kReplacementCharacter);
  return String(text);
}

String DecodeWindows1252(std::string_view bytes) {
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const unsigned char code = At(bytes, i);
    PutUtf8(text, code >= 0x80 && code < 0xA0 ? kWindows1252From80[code - 0x80U] : char32_t{code});
  }
  return String(text);
}

}  // namespace

String DecodeText(const String& bytes) {
  const std::string_view all = bytes.Bytes();
  if (all.starts_with("\xFF\xFE")) return DecodeUtf16(all.substr(2), true);
  if (all.starts_with("\xFE\xFF")) return DecodeUtf16(all.substr(2), false);
  const String text = all.starts_with("\xEF\xBB\xBF") ? bytes.Slice(3) : bytes;
  return IsValidUtf8(text.Bytes()) ? text : DecodeWindows1252(text.Bytes());
}

}  // namespace celestrix
