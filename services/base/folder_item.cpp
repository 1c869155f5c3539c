#include "services/base/folder_item.h"

#include <cerrno>
#include <fstream>
#include <optional>
#include <string>
#include <system_error>

#include "services/base/file_type.h"
#include "services/base/text_decoder.h"

namespace celestrix {

namespace fs = std::filesystem;

namespace {

std::string PathText(const fs::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

std::string CouldNot(const char* done, const fs::path& path, const std::string& reason) {
  return "“" + PathText(path) + "” could not be " + done + ": " + reason + ".";
}

std::string SystemReason() { return std::generic_category().message(errno); }

/// Why what stands at the path must not be opened; nothing where opening it may be tried.
std::optional<std::string> WhyNotAFile(const fs::path& path, bool forWriting) {
  std::error_code error;
  switch (fs::status(path, error).type()) {
    case fs::file_type::regular:
    case fs::file_type::not_found:  // a new file, or else opening it has the better reason
      return std::nullopt;
    case fs::file_type::directory:
      return std::generic_category().message(EISDIR);
    case fs::file_type::none:
      return error.message();
    case fs::file_type::character:
      if (forWriting) return std::nullopt;
      [[fallthrough]];
    default:
      return "It is not a file";
  }
}

/// Creates the file empty; on failure `whyNot` says why.
std::filebuf CreateEmpty(const fs::path& path, std::string& whyNot) {
  std::filebuf file;
  if (const auto reason = WhyNotAFile(path, true)) {
    whyNot = CouldNot("created", path, *reason);
    return file;
  }
  file.pubsetbuf(nullptr, 0);  // the streams have buffers of their own
  if (file.open(path, std::ios::out | std::ios::binary | std::ios::trunc) == nullptr)
    whyNot = CouldNot("created", path, SystemReason());
  return file;
}

}  // namespace

Ref<FolderItem> FolderItem::Child(const String& name) const {
  const std::string_view bytes = name.Bytes();
  return New<FolderItem>(path_ / fs::path(std::u8string(bytes.begin(), bytes.end())));
}

bool FolderItem::Exists() const {
  std::error_code ignored;
  return fs::exists(path_, ignored);
}

bool FolderItem::Directory() const {
  std::error_code ignored;
  return fs::is_directory(path_, ignored);
}

std::uint64_t FolderItem::Length() const {
  std::error_code error;
  const std::uintmax_t length = fs::file_size(path_, error);
  return error ? 0 : length;
}

void FolderItem::Delete() const {
  std::error_code ignored;
  if (!fs::is_directory(fs::symlink_status(path_, ignored))) fs::remove(path_, ignored);
}

Ref<TextInputStream> FolderItem::OpenAsTextFile() const {
  const auto nil = [this](const std::string& reason) {
    return Ref<TextInputStream>::Nil(CouldNot("opened", path_, reason));
  };
  if (const auto reason = WhyNotAFile(path_, false)) return nil(*reason);
  const std::uint64_t length = Length();
  if (length > String::kMaxSize) return nil("It is too large");

  std::filebuf file;
  file.pubsetbuf(nullptr, 0);
  if (file.open(path_, std::ios::in | std::ios::binary) == nullptr) return nil(SystemReason());
  const String bytes = String::Build(length, [&](char* room) {
    return static_cast<std::size_t>(file.sgetn(room, static_cast<std::streamsize>(length)));
  });
  return New<TextInputStream>(DecodeText(bytes));
}

Ref<TextOutputStream> FolderItem::CreateTextFile() const {
  std::error_code error;
  fs::create_directories(path_.parent_path(), error);
  if (error) return Ref<TextOutputStream>::Nil(CouldNot("created", path_, error.message()));
  std::string whyNot;
  std::filebuf file = CreateEmpty(path_, whyNot);
  return file.is_open() ? New<TextOutputStream>(std::move(file)) : Ref<TextOutputStream>::Nil(whyNot);
}

Ref<BinaryStream> FolderItem::CreateBinaryFile(const String& fileType) const {
  RegisteredFileTypeNamed(fileType);
  std::string whyNot;
  std::filebuf file = CreateEmpty(path_, whyNot);
  return file.is_open() ? New<BinaryStream>(std::move(file)) : Ref<BinaryStream>::Nil(whyNot);
}

}  // namespace celestrix
