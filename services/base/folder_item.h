// FolderItem: a place in the file system, at which a file may or may not exist.
//
// Only regular files are opened (and, for writing, character devices), so nothing here waits for another program. A
// file that cannot be opened or created gives a null stream that knows the system's reason.
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
  /// The file's length in bytes; 0 if it is not a regular file.
  std::uint64_t Length() const;

  /// Removes the file. Does nothing if there is none, or if it is a folder.
  void Delete() const;

  /// Opens the existing file for reading text, and reads it to its end. Null when it is not a regular file, cannot be
  /// read from start to end, or does not fit into a String.
  Ref<TextInputStream> OpenAsTextFile() const;
  /// Creates an empty file, which replaces an existing one, and opens it for writing text. Missing folders on the way
  /// to it are made, for this user alone.
  Ref<TextOutputStream> CreateTextFile() const;
  /// Creates an empty file, which replaces an existing one, and opens it for writing bytes. `fileType` names its
  /// registered type. The folder must exist.
  Ref<BinaryStream> CreateBinaryFile(const String& fileType) const;

 private:
  std::filesystem::path path_;
};

}  // namespace celestrix
