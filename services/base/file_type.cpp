#include "services/base/file_type.h"

#include <algorithm>
#include <deque>

namespace celestrix {

namespace {

std::deque<FileType> registeredTypes;  // a deque: references to its elements stay valid

char LowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

}  // namespace

bool FileType::Matches(std::string_view fileName) const {
  const std::string_view extension = Extensions.Bytes();
  if (fileName.size() < extension.size()) return false;
  return std::ranges::equal(fileName.substr(fileName.size() - extension.size()), extension, {}, LowerAscii, LowerAscii);
}

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
