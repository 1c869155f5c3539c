#include "core/save_command.h"

#include "core/element_file.h"
#include "core/element_lines.h"
#include "services/ui/dialogs.h"

namespace celestrix {

std::int32_t ChosenFormat(const Ref<Window>& window) {
  constexpr auto kLast = static_cast<std::int32_t>(std::size(kElementFileFormats)) - 1;
  for (std::int32_t i = 0; i < kLast; ++i)
    if (RuntimeWindowControlByNameIndex(window, "FileFormat"_s, i).As<RadioButton>()->Value()) return i;
  return kLast;
}

void Save(const Ref<Window>& window) {
  const ElementFileFormat& proposed = kElementFileFormats[ChosenFormat(window)];
  const Ref<FileType> type = proposed.fileType();
  const Ref<FolderItem> target = GetSaveFolderItem(*type, String(proposed.proposedName));
  if (!target) return;  // cancelled

  const Ref<BinaryStream> stream = target->CreateBinaryFile(*type);
  stream.RaiseIfNull();
  // The choice is read again: an accessibility client can change it while the dialog is open. What is chosen now,
  // before the first yield, decides the whole content of the file; the user may go on choosing meanwhile.
  const ElementFileFormat& format = kElementFileFormats[ChosenFormat(window)];
  const Ref<EditField> txt = RuntimeWindowControlByName(window, "txt"_s).As<EditField>();
  WriteElementFile(stream, ElementLines(txt->Text()), format);
  stream->Close();
}

}  // namespace celestrix
