#pragma once

#include "services/base/folder_item.h"

namespace celestrix {

/// What was dropped: the first item, a file or a text, unchanged. It is a copy, so it outlives the drop.
class DragItem {
 public:
  explicit DragItem(Ref<celestrix::FolderItem> file) : file_(std::move(file)) {}
  explicit DragItem(celestrix::String text) : text_(std::move(text)) {}

  bool FolderItemAvailable() const { return static_cast<bool>(file_); }
  const Ref<celestrix::FolderItem>& FolderItem() const { return file_; }
  bool TextAvailable() const { return !file_; }
  const celestrix::String& Text() const { return text_; }

 private:
  Ref<celestrix::FolderItem> file_;
  celestrix::String text_;
};

}  // namespace celestrix
