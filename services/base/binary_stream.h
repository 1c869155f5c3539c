// BinaryStream: an open file that is written byte by byte, in either byte order.
//
// Writes gather in a buffer and reach the file when it is full, when Position moves elsewhere, and at the
// end. A write that fails is not reported; what stands in the file behind it is then undefined, and
// everything else goes on. The last reference to an open stream closes it, as Close does.
#pragma once

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <memory>

#include "services/base/string.h"

namespace celestrix {

class BinaryStream {
 public:
  /// On an open, empty file, whose buffer should be off.
  explicit BinaryStream(std::filebuf file) : file_(std::move(file)) {}
  ~BinaryStream() { Close(); }
  BinaryStream(const BinaryStream&) = delete;
  BinaryStream& operator=(const BinaryStream&) = delete;

  /// The byte order of WriteShort and WriteLong. False, as at first: most significant byte first.
  void LittleEndian(bool littleEndian) { littleEndian_ = littleEndian; }

  /// Writes the low 8 bits of the value.
  void WriteByte(std::int32_t value) { WriteInteger(value, 1); }
  /// Writes the low 16 bits of the value.
  void WriteShort(std::int32_t value) { WriteInteger(value, 2); }
  /// Writes the value in two's complement, 32 bits.
  void WriteLong(std::int32_t value) { WriteInteger(value, 4); }
  /// Writes the string's bytes, without a length or a terminator.
  void Write(const String& text) { WriteBytes(text.Bytes()); }

  /// The offset in bytes at which the next write goes.
  std::uint64_t Position() const { return start_ + used_; }
  /// Moves it, to any place up to the end of what has been written. (Beyond it, the gap would be zeros.)
  void Position(std::uint64_t position) {
    if (position != Position()) MoveTo(position);
  }

  /// Writes out everything and closes the file. Writes after it are lost.
  void Close();

 private:
  static constexpr std::size_t kBufferSize = 64 * 1024;

  void WriteInteger(std::int32_t value, std::size_t size);
  void WriteBytes(std::string_view bytes) {
    if (bytes.size() > kBufferSize - used_) return WriteThrough(bytes);
    bytes.copy(buffer_.get() + used_, bytes.size());
    used_ += bytes.size();
  }
  void WriteThrough(std::string_view bytes);
  void MoveTo(std::uint64_t position);
  void Flush();

  std::filebuf file_;
  std::unique_ptr<char[]> buffer_ = std::make_unique_for_overwrite<char[]>(kBufferSize);
  std::uint64_t start_ = 0;  // where in the file the buffer's first byte belongs
  std::size_t used_ = 0;     // how many bytes wait in the buffer
  bool littleEndian_ = false;
};

}  // namespace celestrix
