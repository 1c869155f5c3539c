#include "services/base/string.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <new>

#include "services/base/big_block.h"
#include "services/base/string_array.h"

namespace celestrix {

namespace {

// Short sums are laid one behind the other into chunks of this size: one allocation serves hundreds of
// lines. A string keeps its whole chunk alive, which is why long ones get a block of their own.
constexpr std::size_t kSmallestChunkSize = 64 * 1024;
constexpr std::size_t kLargestChunkSize = 2 * kLargePageSize - 64;
constexpr std::size_t kLongestInChunk = kSmallestChunkSize / 8;

// Room for a piece of this size each is reserved when a text is split, which is ample for lines of elements. Room
// that is not used costs nothing: the system gives memory when it is written to.
constexpr std::size_t kUsualPieceSize = 32;

constexpr std::array<char, 128> kAsciiCharacters = [] {
  std::array<char, 128> characters{};
  for (std::size_t code = 0; code < characters.size(); ++code) characters[code] = static_cast<char>(code);
  return characters;
}();

constexpr std::string_view kAsciiSpace = " \t\n\v\f\r";

// The UTF-8 forms of the white space beyond ASCII.
constexpr std::string_view kWideSpaces[] = {
    "\u0085", "\u00A0", "\u1680", "\u2000", "\u2001", "\u2002", "\u2003", "\u2004", "\u2005", "\u2006",
    "\u2007", "\u2008", "\u2009", "\u200A", "\u2028", "\u2029", "\u202F", "\u205F", "\u3000",
};

bool IsAscii(char byte) { return static_cast<unsigned char>(byte) < 0x80; }

std::size_t SpaceAtStart(std::string_view text) {
  if (IsAscii(text.front())) return kAsciiSpace.find(text.front()) != std::string_view::npos ? 1 : 0;
  for (std::string_view space : kWideSpaces)
    if (text.starts_with(space)) return space.size();
  return 0;
}

std::size_t SpaceAtEnd(std::string_view text) {
  if (IsAscii(text.back())) return kAsciiSpace.find(text.back()) != std::string_view::npos ? 1 : 0;
  for (std::string_view space : kWideSpaces)
    if (text.ends_with(space)) return space.size();
  return 0;
}

}  // namespace

String::String(std::string_view bytes) {
  *this = Build(bytes.size(), [bytes](char* room) { return bytes.copy(room, bytes.size()); });
}

String String::Build(std::size_t capacity, const std::function<std::size_t(char*)>& fill) {
  if (capacity == 0) return {};
  String built(Allocate(capacity), "", 0);
  built.data_ = built.block_->Bytes();
  const std::size_t size = fill(built.block_->Bytes());
  built.block_->end += size;
  built.size_ = static_cast<std::int32_t>(size);
  return built;
}

String::Block* String::Allocate(std::size_t capacity) {
  if (capacity > kMaxSize) throw RuntimeException("The text is too long.");
  auto* block = new (AllocateBlock(sizeof(Block) + capacity)) Block{1, nullptr, nullptr};
  block->end = block->Bytes();
  block->limit = block->end + capacity;
  return block;
}

void String::Free(Block* block) {
  FreeBlock(block, static_cast<std::size_t>(block->limit - reinterpret_cast<char*>(block)));
}

String String::Sum(std::string_view first, std::string_view second) {
  const std::size_t size = first.size() + second.size();
  if (size == 0) return {};

  static String chunk;  // the block that short sums go to; its string is only there to hold it
  Block* block = nullptr;
  if (size <= kLongestInChunk) {
    if (chunk.block_ == nullptr || chunk.block_->Room() < size) {
      static std::size_t chunkSize = kSmallestChunkSize;
      chunk = String(Allocate(chunkSize), "", 0);
      chunkSize = std::min(4 * chunkSize, kLargestChunkSize);
    }
    block = chunk.block_;
    ++block->references;
  } else {
    // Room to double in keeps the cost of adding piece by piece in proportion to the result.
    block = Allocate(size <= kMaxSize ? std::min(2 * size, kMaxSize) : size);
  }

  char* start = block->end;
  first.copy(start, first.size());
  second.copy(start + first.size(), second.size());
  block->end += size;
  return {block, start, static_cast<std::int32_t>(size)};
}

String String::Slice(std::size_t begin, std::size_t size) const {
  const std::string_view slice = Bytes().substr(begin, size);
  Share();
  return {block_, slice.data(), static_cast<std::int32_t>(slice.size())};
}

std::int32_t RuntimeStringCompare(const String& a, const String& b) { return a.Bytes().compare(b.Bytes()); }

Ref<StringArray> Split(const String& text, const String& delimiter) {
  const std::string_view bytes = text.Bytes();
  const std::string_view separator = delimiter.Bytes();
  auto pieces = New<StringArray>();
  pieces->Reserve(bytes.size() / kUsualPieceSize + 1);
  std::size_t begin = 0;
  for (std::size_t end = 0; (end = bytes.find(separator, begin)) != std::string_view::npos;
       begin = end + separator.size())
    pieces->Append(text.Slice(begin, end - begin));
  pieces->Append(text.Slice(begin));
  return pieces;
}

String Trim(const String& text) {
  std::string_view rest = text.Bytes();
  const char* start = rest.data();
  for (std::size_t space = 0; !rest.empty() && (space = SpaceAtStart(rest)) != 0;) rest.remove_prefix(space);
  for (std::size_t space = 0; !rest.empty() && (space = SpaceAtEnd(rest)) != 0;) rest.remove_suffix(space);
  return text.Slice(static_cast<std::size_t>(rest.data() - start), rest.size());
}

std::int32_t Asc(const String& text) {
  return text.Bytes().empty() ? 0 : static_cast<unsigned char>(text.Bytes().front());
}

String Chr(std::int32_t code) {
  if (code < 0 || code >= static_cast<std::int32_t>(kAsciiCharacters.size()))
    RaiseOutOfBoundsException(code, static_cast<int>(kAsciiCharacters.size()) - 1);
  return String::OfStaticBytes(&kAsciiCharacters[static_cast<std::size_t>(code)], 1);
}

double Val(const String& text) {
  std::string_view rest = text.Bytes();
  rest.remove_prefix(std::min(rest.find_first_not_of(kAsciiSpace), rest.size()));
  const bool plus = rest.starts_with('+');
  if (plus) rest.remove_prefix(1);
  const bool minus = !plus && rest.starts_with('-');
  // std::from_chars also reads the names of numbers.
  if (rest.find_first_of("0123456789.") != (minus ? 1U : 0U)) return 0;

  double number = 0;
  const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), number);
  if (error != std::errc::result_out_of_range) return number;
  const bool tiny = std::string_view(rest.data(), end).find('-', 1) != std::string_view::npos;
  return tiny ? 0 : std::copysign(HUGE_VAL, minus ? -1.0 : 1.0);
}

std::int32_t RuntimeCvtReal64ToSInt32(double number) {
  const bool fits = number > double{INT32_MIN} - 1 && number < double{INT32_MAX} + 1;
  return fits ? static_cast<std::int32_t>(number) : INT32_MIN;
}

String ReplaceLineEndings(const String& text, const String& lineEnding) {
  const std::string_view bytes = text.Bytes();
  const std::string_view ending = lineEnding.Bytes();
  // Line feeds that are to stay need not be looked at, and a search for one byte is the quickest there is.
  const auto findEnding = [&](std::size_t from) {
    return ending == "\n" ? bytes.find('\r', from) : bytes.find_first_of("\r\n", from);
  };
  if (findEnding(0) == std::string_view::npos) return text;

  const auto endings = static_cast<std::size_t>(
      std::count_if(bytes.begin(), bytes.end(), [](char byte) { return byte == '\r' || byte == '\n'; }));
  return String::Build(bytes.size() + endings * ending.size(), [&](char* out) {
    char* const start = out;
    std::size_t done = 0;
    for (std::size_t at = 0; (at = findEnding(done)) != std::string_view::npos;) {
      out += bytes.copy(out, at - done, done);
      out += ending.copy(out, ending.size());
      done = at + (bytes.substr(at, 2) == "\r\n" ? 2 : 1);
    }
    out += bytes.copy(out, bytes.size() - done, done);
    return static_cast<std::size_t>(out - start);
  });
}

}  // namespace celestrix
