#pragma once

#include "services/base/folder_item.h"

namespace celestrix {

/// What a drop brought: the first item of it. It is a copy, so it outlives the drop.
class DragItem {
 public:
  DragItem(Ref<celestrix::FolderItem> file, bool hasText, celestrix::String text)
      : file_(std::move(file)), hasText_(hasText), text_(std::move(text)) {}

  bool FolderItemAvailable() const { return static_cast<bool>(file_); }
  const Ref<celestrix::FolderItem>& FolderItem() const { return file_; }
  bool TextAvailable() const { return hasText_; }
  const celestrix::String& Text() const { return text_; }

 private:
  Ref<celestrix::FolderItem> file_;
  bool hasText_;
  celestrix::String text_;
};

}  // namespace celestrix
