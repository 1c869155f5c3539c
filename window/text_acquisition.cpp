// How text gets into the field, other than by typing and pasting. A file or a drop replaces the whole text.
#include "app/file_types.h"
#include "services/ui/dialogs.h"
#include "window/window1.h"

namespace celestrix {

void Window1::txt_Open() {
  const Ref<EditField> txt = ControlNamed<EditField>("txt"_s);
  txt->AcceptFileDrop(*FileTypes1::TextFile());
  txt->AcceptTextDrop();
}

void Window1::txt_DropObject(const Ref<DragItem>& item, std::int32_t /*action*/) {
  // Only the first item counts, as a file if it is one. The field itself replaces the line endings of a text.
  if (item->FolderItemAvailable())
    LoadFile(item->FolderItem());
  else if (item->TextAvailable())
    ControlNamed<EditField>("txt"_s)->Text(item->Text());
}

void Window1::BrowseBtn_Action() {
  if (const Ref<FolderItem> file = GetOpenFolderItem(*FileTypes1::TextFile())) LoadFile(file);
}

void Window1::LoadFile(const Ref<FolderItem>& file) {
  const Ref<TextInputStream> stream = file->OpenAsTextFile();
  ControlNamed<EditField>("txt"_s)->Text(ReplaceLineEndings(stream->ReadAll(), EndOfLine()));
  stream->Close();
}

void Window1::txt_TextChange() {
  ControlNamed<PushButton>("SaveBtn"_s)->Enabled(!ControlNamed<EditField>("txt"_s)->IsEmpty());
}

}  // namespace celestrix
