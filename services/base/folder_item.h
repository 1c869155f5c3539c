// FolderItem: a place in the file system, at which a file may or may not exist.
//
// Nothing here blocks on what stands at a place: only regular files are opened (and, for writing,
// character devices), never a pipe, a socket or a folder. A file that cannot be opened or created yields
// a null stream that knows the system's reason.
#pragma once

#include <filesystem>

#include "services/base/binary_stream.h"
#include "services/base/text_stream.h"

namespace celestrix {

class FolderItem {
 public:
  explicit FolderItem(std::filesystem::path path) : path_(std::move(path)) {}

  /// The entry of that name inside this folder, whether or not it exists.
  Ref<FolderItem> Child(const String& name) const;

  bool Exists() const;
  bool Directory() const;
  /// The file's length in bytes; 0 for what is no regular file.
  std::uint64_t Length() const;

  /// Removes the file. Does nothing where there is none, and leaves a folder alone.
  void Delete() const;

  /// Opens the existing file for reading text, and reads it to its end. Null when it is no regular file, cannot be
  /// read from start to end, or does not fit a String, which is also what a text field can hold.
  Ref<TextInputStream> OpenAsTextFile() const;
  /// Creates the file empty, in place of what stood there, and opens it for writing text. The folders that it is
  /// in are made if they do not exist.
  Ref<TextOutputStream> CreateTextFile() const;
  /// Creates the file empty, in place of what stood there, and opens it for writing bytes. It is of the registered
  /// type of that name. The folder must exist.
  Ref<BinaryStream> CreateBinaryFile(const String& fileType) const;

 private:
  std::filesystem::path path_;
};

}  // namespace celestrix
