#include "services/base/string.h"

#include <algorithm>
#include <locale>
#include <sstream>

#include "services/base/string_array.h"

namespace celestrix {

namespace {

// When a text is split, room is reserved as if each piece had this size, which is ample for element lines. Room that
// is not used costs nothing: the system provides memory when it is written to. If the array grew step by step, a whole
// conversion would take 1.08 times as long.
constexpr std::size_t kUsualPieceSize = 32;

// White space, as UTF-8.
constexpr std::string_view kSpaces[] = {
    " ",      "\t",     "\n",     "\v",     "\f",     "\r",     "\u0085", "\u00A0", "\u1680",
    "\u2000", "\u2001", "\u2002", "\u2003", "\u2004", "\u2005", "\u2006", "\u2007", "\u2008",
    "\u2009", "\u200A", "\u2028", "\u2029", "\u202F", "\u205F", "\u3000",
};

/// The size of the white space character at the start of the text, or at its end; 0 if there is none.
std::size_t SpaceAt(bool end, std::string_view text) {
  if (text.empty()) return 0;
  const auto outermost = static_cast<unsigned char>(end ? text.back() : text.front());
  if (outermost > ' ' && outermost < 0x80) return 0;  // the usual case, decided quickly
  for (std::string_view space : kSpaces)
    if (end ? text.ends_with(space) : text.starts_with(space)) return space.size();
  return 0;
}

}  // namespace

String::String(std::string_view bytes)
    : String(Build(bytes.size(), [bytes](char* room) { return bytes.copy(room, bytes.size()); })) {}

String String::Build(std::uint64_t capacity, const std::function<std::size_t(char*)>& fill) {
  if (capacity > kMaxSize) throw RuntimeException("The text is too long.");
  const auto size = static_cast<std::size_t>(capacity);
  const std::shared_ptr<char> block(static_cast<char*>(AllocateBlock(size)), [size](char* b) { FreeBlock(b, size); });
  return {block, fill(block.get())};
}

String RuntimeAddString(const String& first, const String& second) {
  const std::string_view head = first.Bytes(), tail = second.Bytes();
  if (tail.empty()) return first;
  return String::Build(head.size() + tail.size(), [&](char* room) {
    return head.copy(room, head.size()) + tail.copy(room + head.size(), tail.size());
  });
}

Ref<StringArray> Split(const String& text, const String& delimiter) {
  const std::string_view bytes = text.Bytes();
  const std::string_view separator = delimiter.Bytes();
  auto pieces = New<StringArray>();
  pieces->Reserve(bytes.size() / kUsualPieceSize + 1);
  std::size_t begin = 0;
  for (std::size_t end = 0; (end = bytes.find(separator, begin)) != bytes.npos; begin = end + separator.size())
    pieces->Append(text.Slice(begin, end - begin));
  pieces->Append(text.Slice(begin));
  return pieces;
}

String Trim(const String& text) {
  std::string_view rest = text.Bytes();
  while (const std::size_t space = SpaceAt(false, rest)) rest.remove_prefix(space);
  const std::size_t start = text.Bytes().size() - rest.size();
  while (const std::size_t space = SpaceAt(true, rest)) rest.remove_suffix(space);
  return text.Slice(start, rest.size());
}

std::int32_t Asc(const String& text) {
  return text.Bytes().empty() ? 0 : static_cast<unsigned char>(text.Bytes().front());
}

String Chr(std::int32_t code) {
  constexpr std::int32_t kLastCode = 127;
  if (code < 0 || code > kLastCode) RaiseOutOfBoundsException(code, kLastCode);
  return String(std::string(1, static_cast<char>(code)));
}

double Val(const String& text) {
  const String trimmed = Trim(text);
  const std::string_view rest = trimmed.Bytes();
  // Some standard libraries read words and hexadecimal numbers too.
  std::istringstream decimal(std::string(rest.substr(0, rest.find_first_not_of("+-.0123456789eE"))));
  decimal.imbue(std::locale::classic());
  double number = 0;
  return decimal >> number ? number : 0;
}

std::int32_t RuntimeCvtReal64ToSInt32(double number) {
  const bool fits = number > double{INT32_MIN} - 1 && number < double{INT32_MAX} + 1;
  return fits ? static_cast<std::int32_t>(number) : INT32_MIN;
}

String ReplaceAll(const String& text, const String& from, const String& to) {
  const std::string_view bytes = text.Bytes(), old = from.Bytes();
  std::size_t at = bytes.find(old), done = 0;
  if (at == bytes.npos) return text;
  return String::Build(std::uint64_t{bytes.size()} * std::max<std::size_t>(1, to.Bytes().size()),
                       [&](char* const room) {
                         char* end = room;
                         for (; at != bytes.npos; at = bytes.find(old, done)) {
                           end += bytes.copy(end, at - done, done);
                           end += to.Bytes().copy(end, bytes.npos);
                           done = at + old.size();
                         }
                         end += bytes.copy(end, bytes.npos, done);
                         return static_cast<std::size_t>(end - room);
                       });
}

String ReplaceLineEndings(const String& text, const String& lineEnding) {
  const String lineFeeds = ReplaceAll(ReplaceAll(text, "\r\n"_s, "\n"_s), "\r"_s, "\n"_s);
  return lineEnding == "\n"_s ? lineFeeds : ReplaceAll(lineFeeds, "\n"_s, lineEnding);
}

}  // namespace celestrix
