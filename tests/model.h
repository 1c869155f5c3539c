// What the program does to a text, said a second time by other means: whole strings instead of streams, code
// points instead of bytes, no code in common. Slow and plain; the tests compare with it.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace model {

inline std::string Utf8(char32_t c) {
  const auto tail = [c](int shift) { return static_cast<char>(0x80 | (c >> shift & 0x3F)); };
  if (c < 0x80) return {static_cast<char>(c)};
  if (c < 0x800) return {static_cast<char>(0xC0 | c >> 6), tail(0)};
  if (c < 0x10000) return {static_cast<char>(0xE0 | c >> 12), tail(6), tail(0)};
  return {static_cast<char>(0xF0 | c >> 18), tail(12), tail(6), tail(0)};
}

/// The code points of a valid UTF-8 text; nothing for an invalid one.
inline std::optional<std::u32string> CodePoints(const std::string& text) {
  std::u32string points;
  for (std::size_t i = 0; i < text.size();) {
    const auto lead = static_cast<unsigned char>(text[i]);
    const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    char32_t point = length == 1 ? lead : lead & (0xFF >> (length + 1));
    for (std::size_t k = 1; k < length && i + k < text.size(); ++k) point = point << 6 | (text[i + k] & 0x3F);
    // Only the one right way to write a character gives the same bytes back.
    const bool real = point <= 0x10FFFF && (point < 0xD800 || point > 0xDFFF);
    if (!real || text.compare(i, length, Utf8(point)) != 0) return std::nullopt;
    points += point;
    i += length;
  }
  return points;
}

inline std::string FromUtf16(const std::string& bytes, bool littleEndian) {
  std::vector<char32_t> units;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    const char32_t first = static_cast<unsigned char>(bytes[i]), second = static_cast<unsigned char>(bytes[i + 1]);
    units.push_back(littleEndian ? second << 8 | first : first << 8 | second);
  }
  std::string text;
  for (std::size_t i = 0; i < units.size(); ++i) {
    const bool high = units[i] >= 0xD800 && units[i] < 0xDC00, low = units[i] >= 0xDC00 && units[i] < 0xE000;
    const bool pair = high && i + 1 < units.size() && units[i + 1] >= 0xDC00 && units[i + 1] < 0xE000;
    text += Utf8(pair          ? 0x10000 + ((units[i] - 0xD800) << 10) + (units[i + 1] - 0xDC00)
                 : high || low ? 0xFFFD
                               : units[i]);
    if (pair) ++i;
  }
  return bytes.size() % 2 == 0 ? text : text + Utf8(0xFFFD);
}

inline std::string FromWindows1252(const std::string& bytes) {
  constexpr std::array<char32_t, 32> from80 = {0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                               0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,
                                               0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                               0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};
  std::string text;
  for (const char byte : bytes) {
    const auto code = static_cast<unsigned char>(byte);
    text += Utf8(code >= 0x80 && code < 0xA0 ? from80[code - 0x80U] : code);
  }
  return text;
}

/// The text of a file of these bytes, as the field shows it.
inline std::string TextOfFile(std::string bytes) {
  if (bytes.starts_with("\xFF\xFE")) {
    bytes = FromUtf16(bytes.substr(2), true);
  } else if (bytes.starts_with("\xFE\xFF")) {
    bytes = FromUtf16(bytes.substr(2), false);
  } else {
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.erase(0, 3);
    if (!CodePoints(bytes)) bytes = FromWindows1252(bytes);
  }
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); ++i)
    if (bytes[i] != '\r')
      text += bytes[i];
    else if (i + 1 == bytes.size() || bytes[i + 1] != '\n')
      text += '\n';
  return text;
}

inline bool IsBlank(const std::string& line) {
  const std::u32string spaces = U" \t\n\v\f\r\u0085\u00A0\u1680\u2028\u2029\u202F\u205F\u3000";
  for (const char32_t c : CodePoints(line).value_or(U"x"))
    if (spaces.find(c) == std::u32string::npos && (c < 0x2000 || c > 0x200A)) return false;
  return true;
}

inline std::string Number(std::uint32_t value, int size, bool littleEndian) {
  std::string bytes;
  for (int i = 0; i < size; ++i) {
    const char byte = static_cast<char>(value >> 8 * i);
    bytes.insert(littleEndian ? bytes.end() : bytes.begin(), byte);
  }
  return bytes;
}

/// The file that saving the text makes.
inline std::string SavedFile(const std::string& text, bool palm) {
  std::string data;
  for (std::size_t begin = 0; begin <= text.size();) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    std::string line = text.substr(begin, end - begin);
    begin = end + 1;
    if (IsBlank(line) || line.size() > 71) continue;
    line.resize(71);
    data += line;
  }
  const auto sets = static_cast<std::uint32_t>(data.size() / 213);
  data.resize(213 * std::size_t{sets});
  if (!palm) return Number(24, 4, true) + "21lp" + Number(sets, 4, true) + Number(213, 4, true) + data;

  std::string file = "Celestrix Satellite" + std::string(13, '\0') + Number(0x08080003, 4, false);
  for (int date = 0; date < 3; ++date) file += Number(0xBBF81E02, 4, false);
  file += std::string(12, '\0') + "pl12RZQ4" + std::string(8, '\0') + Number(sets, 2, false);
  for (std::uint32_t k = 0; k < sets; ++k) file += Number(78 + 8 * sets + 213 * k, 4, false) + std::string(4, '\0');
  return file + data;
}

}  // namespace model
