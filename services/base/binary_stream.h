// BinaryStream: an open file that is written byte by byte, in either byte order.
//
// A write that fails is not reported; the content of the file from there on is then undefined. The last reference to
// an open stream closes it, as Close does.
#pragma once

#include <fstream>

#include "services/base/string.h"

namespace celestrix {

class BinaryStream {
 public:
  /// The size of the buffer, in bytes. With a file's own buffer of 8 KB, a conversion takes 1.1 times as long.
  static constexpr std::size_t kBufferSize = 64 * 1024;

  /// For an open, empty file and the buffer that it uses.
  BinaryStream(std::unique_ptr<char[]> buffer, std::filebuf file)
      : buffer_(std::move(buffer)), file_(std::move(file)) {}

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

  /// The offset of the next write, in bytes.
  std::uint64_t Position() const { return position_; }
  /// Sets it, at most to the end of what has been written. (Beyond that, the gap would be zeros.)
  void Position(std::uint64_t position);

  /// Writes out everything and closes the file. Writes after it are lost.
  void Close() { file_.close(); }

 private:
  void WriteInteger(std::int32_t value, std::size_t size);
  void WriteBytes(std::string_view bytes);

  std::unique_ptr<char[]> buffer_;  // outlives the file, which writes it out when it closes
  std::filebuf file_;
  std::uint64_t position_ = 0;
  bool littleEndian_ = false;
};

}  // namespace celestrix
