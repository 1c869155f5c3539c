// Text files: TextInputStream reads one, TextOutputStream writes one.
#pragma once

#include "services/base/binary_stream.h"

namespace celestrix {

/// Reads a text. The file was read whole, decoded and closed when the stream was made
/// (FolderItem::OpenAsTextFile), so nothing can fail or change from here on.
class TextInputStream {
 public:
  explicit TextInputStream(String text) : rest_(std::move(text)) {}

  /// The next line without its line ending, which is CR LF, CR or LF; "" at the end.
  String ReadLine();
  /// The rest of the text, line endings untouched.
  String ReadAll() { return std::exchange(rest_, String()); }
  /// Releases the text.
  void Close() { rest_ = String(); }

 private:
  String rest_;
};

/// Writes a text file. Releasing the last reference closes it.
class TextOutputStream {
 public:
  explicit TextOutputStream(std::ofstream file) : file_(std::move(file)) {}

  /// Writes the text and the EndOfLine. A failure is not reported, and nothing is written after it.
  void WriteLine(const String& text) { file_.Write(RuntimeAddString(text, EndOfLine())); }
  void Close() { file_.Close(); }

 private:
  BinaryStream file_;
};

}  // namespace celestrix
