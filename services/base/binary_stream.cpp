#include "services/base/binary_stream.h"

#include <array>

namespace celestrix {

void BinaryStream::Position(std::uint64_t position) {
  if (position == Position()) return;
  WriteOut();
  file_.seekp(static_cast<std::streamoff>(position));
  bufferStart_ = position;
}

void BinaryStream::Close() {
  WriteOut();
  file_.close();
}

void BinaryStream::WriteInteger(std::int32_t value, std::size_t size) {
  std::array<char, sizeof value> bytes{};
  for (std::size_t i = 0; i < size; ++i)
    bytes[littleEndian_ ? i : size - 1 - i] = static_cast<char>(static_cast<std::uint32_t>(value) >> (8 * i));
  WriteBytes({bytes.data(), size});
}

void BinaryStream::WriteBytes(std::string_view bytes) {
  if (buffer_.size() + bytes.size() > kBufferSize) WriteOut();
  buffer_ += bytes;
}

void BinaryStream::WriteOut() {
  file_.write(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
  bufferStart_ += buffer_.size();
  buffer_.clear();
}

}  // namespace celestrix
