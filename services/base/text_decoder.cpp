#include "services/base/text_decoder.h"

#include <array>

namespace celestrix {

namespace {

constexpr char32_t kReplacementCharacter = 0xFFFD;
constexpr std::size_t kLongestCharacter = 3;  // in UTF-8 bytes, of one UTF-16 unit or one byte of Windows-1252

/// What the bytes 0x80 to 0x9F of Windows-1252 stand for; all others stand for the code point of their own number.
constexpr std::array<char32_t, 32> kWindows1252From80 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

unsigned char At(std::string_view bytes, std::size_t index) { return static_cast<unsigned char>(bytes[index]); }

/// The index of the first byte from `begin` on that is not ASCII.
std::size_t FindNonAscii(std::string_view text, std::size_t begin) {
  constexpr std::size_t kStep = 64;  // without an exit in its middle, the inner loop can be vectorised
  for (; begin + kStep <= text.size(); begin += kStep) {
    unsigned char seen = 0;
    for (std::size_t i = 0; i < kStep; ++i) seen |= At(text, begin + i);
    if (seen >= 0x80) break;
  }
  while (begin < text.size() && At(text, begin) < 0x80) ++begin;
  return begin;
}

/// The size of a UTF-8 character that begins with this byte, which is not ASCII; 0 if none does.
std::size_t SizeByLead(unsigned char lead) {
  if (lead < 0xC2 || lead >= 0xF5) return 0;
  if (lead < 0xE0) return 2;
  return lead < 0xF0 ? 3 : 4;
}

/// The size of the character at the start of the text, which is not ASCII; 0 if it is not valid UTF-8.
std::size_t SizeOfFirstCharacter(std::string_view text) {
  const unsigned char lead = At(text, 0);
  const std::size_t size = SizeByLead(lead);
  if (size == 0 || size > text.size()) return 0;
  for (std::size_t i = 1; i < size; ++i)
    if ((At(text, i) & 0xC0) != 0x80) return 0;
  const unsigned char second = At(text, 1);
  const bool tooLong = (lead == 0xE0 && second < 0xA0) || (lead == 0xF0 && second < 0x90);
  const bool surrogate = lead == 0xED && second >= 0xA0;
  const bool beyondUnicode = lead == 0xF4 && second >= 0x90;
  return tooLong || surrogate || beyondUnicode ? 0 : size;
}

bool IsValidUtf8(std::string_view text) {
  for (std::size_t at = 0; (at = FindNonAscii(text, at)) < text.size();) {
    const std::size_t size = SizeOfFirstCharacter(text.substr(at));
    if (size == 0) return false;
    at += size;
  }
  return true;
}

/// How many bytes follow the first one in the character's UTF-8 form.
std::size_t BytesBehindFirst(char32_t c) {
  if (c < 0x80) return 0;
  if (c < 0x800) return 1;
  return c < 0x10000 ? 2 : 3;
}

/// Writes the character's UTF-8 form and returns where it ends.
char* PutUtf8(char* out, char32_t c) {
  constexpr std::array<char32_t, 4> kFirstByteMarks = {0, 0xC0, 0xE0, 0xF0};  // by how many bytes follow
  std::size_t left = BytesBehindFirst(c);
  *out++ = static_cast<char>(kFirstByteMarks[left] | c >> 6 * left);
  while (left-- > 0) *out++ = static_cast<char>(0x80 | (c >> 6 * left & 0x3F));
  return out;
}

bool IsHighSurrogate(char32_t unit) { return (unit & 0xFC00) == 0xD800; }
bool IsLowSurrogate(char32_t unit) { return (unit & 0xFC00) == 0xDC00; }

String DecodeUtf16(std::string_view bytes, bool littleEndian) {
  const std::size_t units = bytes.size() / 2;
  const auto unitAt = [&](std::size_t i) -> char32_t {
    const unsigned first = At(bytes, 2 * i), second = At(bytes, 2 * i + 1);
    return littleEndian ? second << 8 | first : first << 8 | second;
  };
  return String::Build((units + 1) * kLongestCharacter, [&](char* const start) {
    char* out = start;
    for (std::size_t i = 0; i < units; ++i) {
      char32_t c = unitAt(i);
      if (IsHighSurrogate(c) && i + 1 < units && IsLowSurrogate(unitAt(i + 1)))
        c = 0x10000 + ((c & 0x3FF) << 10) + (unitAt(++i) & 0x3FF);
      else if (IsHighSurrogate(c) || IsLowSurrogate(c))
        c = kReplacementCharacter;
      out = PutUtf8(out, c);
    }
    if (bytes.size() % 2 != 0) out = PutUtf8(out, kReplacementCharacter);
    return static_cast<std::size_t>(out - start);
  });
}

String DecodeWindows1252(std::string_view bytes) {
  return String::Build(bytes.size() * kLongestCharacter, [&](char* const start) {
    char* out = start;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
      const unsigned char code = At(bytes, i);
      out = PutUtf8(out, code >= 0x80 && code < 0xA0 ? kWindows1252From80[code - 0x80U] : code);
    }
    return static_cast<std::size_t>(out - start);
  });
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
