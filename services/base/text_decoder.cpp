#include "services/base/text_decoder.h"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <string_view>

namespace celestrix {

namespace {

// The most UTF-8 bytes that one byte of either encoding can become: a euro sign of Windows-1252 takes three.
constexpr std::size_t kWindows1252Growth = 3;
constexpr std::size_t kUtf16Growth = 2;  // three bytes for two, and three for a single one at the end
constexpr std::string_view kReplacementCharacter = "\uFFFD";

/// The system's converter from one encoding to another.
class Converter {
 public:
  Converter(const char* from, const char* to) : converter_(iconv_open(to, from)) {
    if (converter_ == iconv_t(-1)) throw RuntimeException(std::string("This system cannot read ") + from + " text.");
  }
  ~Converter() { iconv_close(converter_); }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;

  /// Converts until the input or the room ends, or at the first input that stands for no character.
  /// Moves both past what is done, and returns 0, or the reason to stop as an errno.
  int Convert(std::string_view& in, char*& out, std::size_t room) {
    auto* source = const_cast<char*>(in.data());  // iconv's interface predates const
    std::size_t left = in.size();
    const bool done = iconv(converter_, &source, &left, &out, &room) != std::size_t(-1);
    in.remove_prefix(in.size() - left);
    return done ? 0 : errno;
  }

 private:
  iconv_t converter_;
};

/// The first byte at or behind `begin` that is not ASCII (or that is, with `ascii`).
std::size_t FindNonAscii(std::string_view text, std::size_t begin) {
  constexpr std::size_t kStep = 64;  // a loop without a way out in the middle, which the compiler makes wide
  for (; begin + kStep <= text.size(); begin += kStep) {
    unsigned char seen = 0;
    for (std::size_t i = 0; i < kStep; ++i) seen |= static_cast<unsigned char>(text[begin + i]);
    if (seen >= 0x80) break;
  }
  while (begin < text.size() && static_cast<unsigned char>(text[begin]) < 0x80) ++begin;
  return begin;
}

bool IsValidUtf8(std::string_view text) {
  // No character of UTF-8 has ASCII bytes in it, so each run of others can be looked at by itself.
  std::size_t begin = FindNonAscii(text, 0);
  if (begin == text.size()) return true;

  // To UTF-16, because that has no room for the numbers beyond U+10FFFF; to UTF-8, some converters let them pass.
  Converter converter("UTF-8", "UTF-16LE");
  std::array<char, 4096> ignored{};
  while (begin < text.size()) {
    const char* const end = std::find_if(text.data() + begin, text.data() + text.size(),
                                         [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
    std::string_view run = text.substr(begin, static_cast<std::size_t>(end - (text.data() + begin)));
    begin += run.size();
    while (!run.empty()) {
      char* out = ignored.data();
      const int stop = converter.Convert(run, out, ignored.size());
      if (stop != 0 && stop != E2BIG) return false;
    }
    begin = FindNonAscii(text, begin);
  }
  return true;
}

/// Writes what stands for the input that the converter refused, and moves past it.
void Replace(std::string_view& in, char*& out, bool utf16) {
  if (utf16) {
    out += kReplacementCharacter.copy(out, kReplacementCharacter.size());
    in.remove_prefix(std::min<std::size_t>(in.size(), 2));
  } else {
    *out++ = '\xC2';  // U+0081 to U+009D are C2 81 to C2 9D
    *out++ = in.front();
    in.remove_prefix(1);
  }
}

String Decode(std::string_view bytes, const char* encoding, bool utf16) {
  const std::size_t room = utf16 ? bytes.size() * kUtf16Growth + 3 : bytes.size() * kWindows1252Growth;
  Converter converter(encoding, "UTF-8");
  return String::Build(room, [&](char* const start) {
    char* out = start;
    while (converter.Convert(bytes, out, room - static_cast<std::size_t>(out - start)) != 0) Replace(bytes, out, utf16);
    return static_cast<std::size_t>(out - start);
  });
}

}  // namespace

String DecodeText(const String& bytes) {
  const std::string_view all = bytes.Bytes();
  if (all.starts_with("\xFF\xFE")) return Decode(all.substr(2), "UTF-16LE", true);
  if (all.starts_with("\xFE\xFF")) return Decode(all.substr(2), "UTF-16BE", true);
  const String text = all.starts_with("\xEF\xBB\xBF") ? bytes.Slice(3) : bytes;
  return IsValidUtf8(text.Bytes()) ? text : Decode(text.Bytes(), "WINDOWS-1252", false);
}

}  // namespace celestrix
