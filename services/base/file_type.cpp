#include "services/base/file_type.h"

#include <deque>

namespace celestrix {

namespace {

std::deque<FileType> registeredTypes;  // a deque: references to its elements stay valid

}  // namespace

FileType::operator String() {
  if (!registered_) RuntimeRegisterFileType(*this);
  registered_ = true;
  return Name;
}

void RuntimeRegisterFileType(const FileType& type) { registeredTypes.push_back(type); }

const FileType& RegisteredFileTypeNamed(const String& name) {
  for (const FileType& type : registeredTypes)
    if (type.Name == name) return type;
  throw RuntimeException("There is no file type “" + std::string(name.Bytes()) + "”.");
}

}  // namespace celestrix
