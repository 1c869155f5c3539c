#include "services/base/file_type.h"

#include <algorithm>
#include <deque>

namespace celestrix {

namespace {

std::deque<RegisteredFileType>& Register() {
  static std::deque<RegisteredFileType> types;  // a deque: what it holds stays where it is
  return types;
}

char LowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

}  // namespace

bool RegisteredFileType::Matches(std::string_view fileName) const {
  const std::string_view extension = Extensions.Bytes();
  return fileName.size() >= extension.size() &&
         std::equal(extension.begin(), extension.end(), fileName.end() - static_cast<std::ptrdiff_t>(extension.size()),
                    [](char a, char b) { return LowerAscii(a) == LowerAscii(b); });
}

FileType::operator String() {
  if (!registered_) RuntimeRegisterFileType({Name, MacCreator, MacType, Extensions});
  registered_ = true;
  return Name;
}

void RuntimeRegisterFileType(RegisteredFileType type) { Register().push_back(std::move(type)); }

const RegisteredFileType& RegisteredFileTypeNamed(const String& name) {
  for (const RegisteredFileType& type : Register())
    if (type.Name == name) return type;
  throw RuntimeException("There is no file type “" + std::string(name.Bytes()) + "”.");
}

}  // namespace celestrix
