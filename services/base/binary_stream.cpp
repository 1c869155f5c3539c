#include "services/base/binary_stream.h"

#include <array>

namespace celestrix {

void BinaryStream::WriteInteger(std::int32_t value, std::size_t size) {
  std::array<char, 4> bytes{};
  for (std::size_t i = 0; i < size; ++i) {
    const std::size_t significance = littleEndian_ ? i : size - 1 - i;
    bytes[i] = static_cast<char>(static_cast<std::uint32_t>(value) >> (8 * significance));
  }
  WriteBytes({bytes.data(), size});
}

void BinaryStream::WriteThrough(std::string_view bytes) {
  // Whole buffers, so that every write begins and ends with a page of the file.
  while (!bytes.empty()) {
    const std::size_t fits = bytes.copy(buffer_.get() + used_, kBufferSize - used_);
    used_ += fits;
    bytes.remove_prefix(fits);
    if (used_ == kBufferSize) Flush();
  }
}

void BinaryStream::MoveTo(std::uint64_t position) {
  Flush();
  start_ = position;
  file_.pubseekpos(static_cast<std::streamoff>(position));
}

void BinaryStream::Flush() {
  file_.sputn(buffer_.get(), static_cast<std::streamsize>(used_));
  start_ += used_;
  used_ = 0;
}

void BinaryStream::Close() {
  Flush();
  file_.close();
}

}  // namespace celestrix
