#include "services/base/folder_item.h"

#include <algorithm>
#include <cerrno>
#include <optional>
#include <system_error>

#include "services/base/file_type.h"
#include "services/base/system_reason.h"
#include "services/base/text_decoder.h"

namespace celestrix {

namespace fs = std::filesystem;

namespace {

/// A null stream that knows why.
template <class Stream>
Ref<Stream> CouldNot(const char* done, fs::path path, const std::string& reason) {
  const std::u8string name = path.make_preferred().u8string();  // as the system writes paths
  return Ref<Stream>::Nil("“" + std::string(name.begin(), name.end()) + "” could not be " + done + ": " + reason + ".");
}

/// Why the last operation on a file failed.
std::string LastReason() { return SystemReason({errno, std::generic_category()}); }

/// Why the path must not be opened; nothing if opening it may be tried.
std::optional<std::string> WhyNotAFile(const fs::path& path, bool forWriting) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (status.type() == fs::file_type::none) return SystemReason(error);
  if (fs::is_directory(status)) return SystemReason(make_error_code(std::errc::is_a_directory));
  // If there is nothing, a file may be created there, and if opening fails, it has the better reason.
  const bool mayTry =
      fs::is_regular_file(status) || !fs::exists(status) || (forWriting && fs::is_character_file(status));
  return mayTry ? std::nullopt : std::optional<std::string>("It is not a file");
}

/// Creates an empty file and opens it for a stream of that kind; a null one that knows why if that fails.
template <class Stream>
Ref<Stream> CreateEmpty(const fs::path& path) {
  if (const auto reason = WhyNotAFile(path, true)) return CouldNot<Stream>("created", path, *reason);
  std::ofstream file(path, std::ios::binary);
  return file ? New<Stream>(std::move(file)) : CouldNot<Stream>("created", path, LastReason());
}

/// Reads the file up to its end, which need not be where the system says: some file systems report a length of 0 for a
/// file that has content, and a file may grow while it is read. Nothing if it is too large; errno says whether a read
/// has failed, since not every standard library does.
std::optional<String> ReadToEnd(std::ifstream& file, std::uint64_t expectedLength) {
  constexpr std::uint64_t kLeastRoom = 4096;
  // The end has been reached only if there was more room than bytes.
  for (std::uint64_t room = std::max(expectedLength + 1, kLeastRoom); room <= String::kMaxSize; room *= 2) {
    file.seekg(0);
    String bytes = String::Build(room, [&](char* start) {
      errno = 0;
      file.read(start, static_cast<std::streamsize>(room));
      return static_cast<std::size_t>(file.gcount());
    });
    if (!file) return bytes;
  }
  return std::nullopt;
}

/// Makes the folder, and those that it is in, if they are missing. What it makes is for this user alone.
void MakeFolder(const fs::path& folder, std::error_code& error) {
  std::error_code ignored;
  if (fs::exists(folder, ignored) || !folder.has_relative_path()) return;
  MakeFolder(folder.parent_path(), error);
  if (!error && fs::create_directory(folder, error)) fs::permissions(folder, fs::perms::owner_all, ignored);
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
  const auto nil = [this](const std::string& reason) { return CouldNot<TextInputStream>("opened", path_, reason); };
  if (const auto reason = WhyNotAFile(path_, false)) return nil(*reason);
  std::ifstream file(path_, std::ios::binary);
  if (!file) return nil(LastReason());
  const auto bytes = ReadToEnd(file, Length());
  if (!bytes) return nil("It is too large");
  return errno == 0 ? New<TextInputStream>(DecodeText(*bytes)) : nil(LastReason());
}

Ref<TextOutputStream> FolderItem::CreateTextFile() const {
  std::error_code error;
  MakeFolder(path_.parent_path(), error);
  if (error) return CouldNot<TextOutputStream>("created", path_, SystemReason(error));
  return CreateEmpty<TextOutputStream>(path_);
}

Ref<BinaryStream> FolderItem::CreateBinaryFile(const String& fileType) const {
  RegisteredFileTypeNamed(fileType);  // raises if there is none; current file systems need nothing more of it
  return CreateEmpty<BinaryStream>(path_);
}

}  // namespace celestrix
