#include "core/save_command.h"

#include "app/file_types.h"
#include "core/element_file.h"
#include "core/element_lines.h"
#include "services/ui/dialogs.h"

namespace celestrix {

namespace {

/// FileFormat(0).Value: whether the Palm database is chosen.
bool PalmIsChosen(const Ref<Window>& window) {
  return RuntimeWindowControlByNameIndex(window, "FileFormat"_s, 0).As<RadioButton>()->Value();
}

}  // namespace

void Save(const Ref<Window>& window) {
  const bool palm = PalmIsChosen(window);
  const Ref<FileType> type = palm ? FileTypes1::PDBFile() : FileTypes1::PPCFile();
  const String defaultName = palm ? "celestrix_satellites.pdb"_s : "celestrix_satellites.ppc"_s;
  const Ref<FolderItem> target = GetSaveFolderItem(*type, defaultName);
  if (!target) return;  // cancelled

  const Ref<BinaryStream> stream = target->CreateBinaryFile(*type);
  stream.RaiseIfNull();
  const Ref<EditField> txt = RuntimeWindowControlByName(window, "txt"_s).As<EditField>();
  const Ref<StringArray> lines = ElementLines(txt->Text());
  // The choice is read again: an accessibility client can change it at any time, even while the dialog is open. What is
  // chosen now decides the whole content of the file.
  WriteElementFile(stream, lines,
                   PalmIsChosen(window) ? ElementFileFormat::kPalmDatabase : ElementFileFormat::kPocketPcFile);
  stream->Close();
}

}  // namespace celestrix
