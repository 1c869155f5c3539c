#include "services/base/binary_stream.h"

#include <array>

namespace celestrix {

void BinaryStream::Position(std::uint64_t position) {
  // The file writes out its buffer at every seek, even at one to the current position.
  if (position == position_) return;
  file_.pubseekpos(static_cast<std::streamoff>(position));
  position_ = position;
}

void BinaryStream::WriteInteger(std::int32_t value, std::size_t size) {
  std::array<char, 4> bytes{};
  for (std::size_t i = 0; i < size; ++i) {
    const std::size_t significance = littleEndian_ ? i : size - 1 - i;
    bytes[i] = static_cast<char>(static_cast<std::uint32_t>(value) >> (8 * significance));
  }
  WriteBytes({bytes.data(), size});
}

void BinaryStream::WriteBytes(std::string_view bytes) {
  file_.sputn(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  position_ += bytes.size();
}

}  // namespace celestrix
