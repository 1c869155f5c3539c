// FileType: a declared kind of file, and the register of those that the program has declared.
//
// A type is passed to dialogs, to fields that accept dropped files and to file creation in its text form,
// its Name, and found in the register by it. Its first conversion to text puts it there.
#pragma once

#include "services/base/string.h"

namespace celestrix {

/// On the file systems of today a file's type is known by its extension alone; the codes are for a platform that
/// tags files with them ("????" leaves a file untagged).
class FileType {
 public:
  String Name;        // shown in dialogs
  String MacCreator;  // four characters
  String MacType;     // four characters
  String Extensions;  // with its leading dot; each type has one

  /// The text form: the type's Name. Registers the type on its first conversion; its properties must not
  /// change afterwards.
  operator String();

  /// Whether a file of that name is of this type: it has the extension, in upper or lower case.
  bool Matches(std::string_view fileName) const;

 private:
  bool registered_ = false;
};

void RuntimeRegisterFileType(const FileType& type);

/// The type registered under that name; raises RuntimeException where there is none. It stays where it is.
const FileType& RegisteredFileTypeNamed(const String& name);

}  // namespace celestrix
