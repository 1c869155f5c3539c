// FileType: a declared kind of file, and the register of those that the program has declared.
//
// A type is passed to dialogs, to fields that accept dropped files and to file creation in its text form,
// its Name, and found in the register by it. Its first conversion to text puts it there.
#pragma once

#include <string_view>

#include "services/base/string.h"

namespace celestrix {

/// What the register keeps of a type. On the file systems of today a file's type is known by its
/// extension alone; the codes are for a platform that tags files with them ("????" leaves a file untagged).
struct RegisteredFileType {
  String Name;        // shown in dialogs
  String MacCreator;  // four characters
  String MacType;     // four characters
  String Extensions;  // with its leading dot; each type has one

  /// Whether a file of that name is of this type: it has the extension, in upper or lower case.
  bool Matches(std::string_view fileName) const;
};

class FileType {
 public:
  String Name;
  String MacCreator;
  String MacType;
  String Extensions;

  /// The text form: the type's Name. Registers the type on its first conversion; its properties must not
  /// change afterwards.
  operator String();

 private:
  bool registered_ = false;
};

void RuntimeRegisterFileType(RegisteredFileType type);

/// The type registered under that name; raises RuntimeException where there is none.
const RegisteredFileType& RegisteredFileTypeNamed(const String& name);

}  // namespace celestrix
