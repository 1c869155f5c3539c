#include "services/base/string.h"

#include <algorithm>
#include <charconv>

#include "services/base/string_array.h"

namespace celestrix {

namespace {

// The blocks that short strings share grow from the first of these sizes to the second, so that a few lines do not
// take megabytes.
constexpr std::size_t kSmallestSharedBlock = 64 * 1024;
constexpr std::size_t kLargestSharedBlock = 2 * kLargePageSize - 64;
constexpr std::size_t kLongestShortString = 128;

// When a text is split, room is reserved as if each piece had this size, which is ample for element lines. Room that
// is not used costs nothing: the system provides memory when it is written to. If the array grew step by step, a whole
// conversion would take 1.07 times as long.
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
    : String(bytes.size() <= kLongestShortString ? InSharedBlock(bytes) : Build(bytes.size(), [bytes](char* room) {
        return bytes.copy(room, bytes.size());
      })) {}

String String::InSharedBlock(std::string_view bytes) {
  static Block block;
  static std::size_t size = kSmallestSharedBlock / 4, used = size;
  if (size - used <= bytes.size()) {
    size = std::min(4 * size, kLargestSharedBlock);
    block = Allocate(size);
    used = 0;
  }
  char* start = block.get() + used;
  used += bytes.copy(start, bytes.size());
  return {{block, start}, bytes.size()};
}

String String::Build(std::size_t capacity, const std::function<std::size_t(char*)>& fill) {
  const Block block = Allocate(capacity);
  const std::size_t size = fill(block.get());
  return {{block, block.get()}, size};
}

String::Block String::Allocate(std::size_t capacity) {
  if (capacity > kMaxSize) throw RuntimeException("The text is too long.");
  return std::allocate_shared_for_overwrite<char[]>(BlockAllocator<char>(), capacity);
}

String String::Slice(std::size_t begin, std::size_t size) const {
  const std::string_view slice = Bytes().substr(begin, size);
  return {{data_, slice.data()}, slice.size()};
}

String RuntimeAddString(const String& first, const String& second) {
  const std::string_view head = first.Bytes(), tail = second.Bytes();
  if (tail.empty()) return first;
  return String::Build(head.size() + tail.size(), [&](char* room) {
    return head.copy(room, head.size()) + tail.copy(room + head.size(), tail.size());
  });
}

std::int32_t RuntimeStringCompare(const String& a, const String& b) { return a.Bytes().compare(b.Bytes()); }

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
  // std::from_chars accepts "nan" and "inf", which are not numbers here, and does not accept a plus sign.
  const std::string_view sign = rest.substr(0, rest.find_first_of("0123456789."));
  if (!sign.empty() && sign != "+" && sign != "-") return 0;
  double number = 0;
  std::from_chars(rest.data() + sign.size(), rest.data() + rest.size(), number);
  return sign == "-" ? -number : number;
}

std::int32_t RuntimeCvtReal64ToSInt32(double number) {
  const bool fits = number > double{INT32_MIN} - 1 && number < double{INT32_MAX} + 1;
  return fits ? static_cast<std::int32_t>(number) : INT32_MIN;
}

String ReplaceAll(const String& text, const String& from, const String& to) {
  const std::string_view bytes = text.Bytes(), old = from.Bytes();
  std::string replaced;
  std::size_t done = 0;
  for (std::size_t at = 0; (at = bytes.find(old, done)) != bytes.npos; done = at + old.size())
    replaced.append(bytes, done, at - done).append(to.Bytes());
  return done == 0 ? text : String(replaced.append(bytes, done));
}

String ReplaceLineEndings(const String& text, const String& lineEnding) {
  const String lineFeeds = ReplaceAll(ReplaceAll(text, "\r\n"_s, "\n"_s), "\r"_s, "\n"_s);
  return lineEnding == "\n"_s ? lineFeeds : ReplaceAll(lineFeeds, "\n"_s, lineEnding);
}

}  // namespace celestrix
