// Text files: TextInputStream reads one, TextOutputStream writes one.
#pragma once

#include <fstream>

#include "services/base/string.h"

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

/// Writes a text file. The last reference to an open stream closes it.
class TextOutputStream {
 public:
  explicit TextOutputStream(std::filebuf file) : file_(std::move(file)) {}

  /// Writes the text and the EndOfLine. Whether that succeeds is not reported.
  void WriteLine(const String& text);
  void Close() { file_.close(); }

 private:
  std::filebuf file_;
};

}  // namespace celestrix
