// FileType: a kind of file, and the register of those that the program has declared.
//
// Whoever needs a type (a dialog, a field that accepts dropped files, the creation of a file) is given its text form,
// its Name, and looks it up in the register. The first conversion to text registers the type.
#pragma once

#include "services/base/string.h"

namespace celestrix {

/// On current file systems only the extension tells a file's type; the codes are for a platform that tags files with
/// them ("????" leaves a file untagged).
class FileType {
 public:
  String Name;        // shown in dialogs
  String MacCreator;  // four characters
  String MacType;     // four characters
  String Extensions;  // with the leading dot; exactly one

  /// The text form: the type's Name. Registers the type on its first conversion; its properties must not
  /// change afterwards.
  operator String();

 private:
  bool registered_ = false;
};

void RuntimeRegisterFileType(const FileType& type);

/// The type registered under that name; raises RuntimeException if there is none. The reference stays valid.
const FileType& RegisteredFileTypeNamed(const String& name);

}  // namespace celestrix
