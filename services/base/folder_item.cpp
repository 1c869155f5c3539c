#include "services/base/folder_item.h"

#include <algorithm>
#include <cerrno>
#include <ios>
#include <optional>
#include <system_error>

#include "services/base/file_type.h"
#include "services/base/system_reason.h"
#include "services/base/text_decoder.h"

namespace celestrix {

namespace fs = std::filesystem;

namespace {

std::string CouldNot(const char* done, fs::path path, const std::string& reason) {
  const std::u8string name = path.make_preferred().u8string();  // as the system writes paths
  return "“" + std::string(name.begin(), name.end()) + "” could not be " + done + ": " + reason + ".";
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

/// Creates an empty file and opens it; returns why that failed, or nothing.
std::optional<std::string> CreateEmpty(const fs::path& path, std::filebuf& file) {
  if (const auto reason = WhyNotAFile(path, true)) return CouldNot("created", path, *reason);
  if (file.open(path, std::ios::out | std::ios::binary | std::ios::trunc) != nullptr) return std::nullopt;
  return CouldNot("created", path, LastReason());
}

/// All bytes of the file up to its end, which need not be where the system says: some file systems report a length of 0
/// for a file that has content, and a file may grow while it is read. Nothing if it is too large.
std::optional<String> ReadToEnd(std::filebuf& file, std::uint64_t expectedLength) {
  constexpr std::uint64_t kLeastRoom = 4096;
  // The end has been reached only if there was more room than bytes.
  for (std::uint64_t room = std::max(expectedLength + 1, kLeastRoom); room <= String::kMaxSize; room *= 2) {
    file.pubseekpos(0);
    String bytes = String::Build(room, [&](char* start) {
      return static_cast<std::size_t>(file.sgetn(start, static_cast<std::streamsize>(room)));
    });
    if (bytes.Bytes().size() < room) return bytes;
  }
  return std::nullopt;
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
  std::filebuf file;
  if (file.open(path_, std::ios::in | std::ios::binary) == nullptr) return nil(LastReason());
  try {
    const auto bytes = ReadToEnd(file, Length());
    return bytes ? New<TextInputStream>(DecodeText(*bytes)) : nil("It is too large");
  } catch (const std::ios_base::failure& error) {  // a read that failed midway
    return nil(SystemReason(error.code()));
  }
}

Ref<TextOutputStream> FolderItem::CreateTextFile() const {
  std::error_code error;
  fs::create_directories(path_.parent_path(), error);
  if (error) return Ref<TextOutputStream>::Nil(CouldNot("created", path_, SystemReason(error)));
  std::filebuf file;
  if (const auto whyNot = CreateEmpty(path_, file)) return Ref<TextOutputStream>::Nil(*whyNot);
  return New<TextOutputStream>(std::move(file));
}

Ref<BinaryStream> FolderItem::CreateBinaryFile(const String& fileType) const {
  RegisteredFileTypeNamed(fileType);  // raises if there is none; current file systems need nothing more of it
  auto buffer = std::make_unique_for_overwrite<char[]>(BinaryStream::kBufferSize);
  std::filebuf file;
  file.pubsetbuf(buffer.get(), BinaryStream::kBufferSize);
  if (const auto whyNot = CreateEmpty(path_, file)) return Ref<BinaryStream>::Nil(*whyNot);
  return New<BinaryStream>(std::move(buffer), std::move(file));
}

}  // namespace celestrix
