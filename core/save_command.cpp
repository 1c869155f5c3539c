#include "core/save_command.h"

#include "app/file_types.h"
#include "core/element_lines.h"
#include "core/palm_database.h"
#include "core/pocket_pc_file.h"
#include "services/ui/dialogs.h"

namespace celestrix {

namespace {

/// FileFormat(0).Value: whether the Palm database is chosen.
bool PalmIsChosen(const Ref<Window>& window) {
  return RuntimeWindowControlByNameIndex(window, "FileFormat"_s, 0).As<RadioButton>()->Value();
}

}  // namespace

void SaveBtn_Action(const Ref<Window>& window) {
  const bool palm = PalmIsChosen(window);
  const Ref<FileType> type = palm ? FileTypes1::PDBFile() : FileTypes1::PPCFile();
  const String defaultName = palm ? "celestrix_satellites.pdb"_s : "celestrix_satellites.ppc"_s;
  const Ref<FolderItem> target = GetSaveFolderItem(*type, defaultName);
  if (!target) return;  // cancelled

  const Ref<BinaryStream> stream = target->CreateBinaryFile(*type);
  stream->LittleEndian(!palm);
  const Ref<EditField> txt = RuntimeWindowControlByName(window, "txt"_s).As<EditField>();
  const Ref<StringArray> lines = ElementLines(txt->Text());
  // The choice cannot have changed since it was read above: what the user does in the yields takes its turn
  // after this handler. So byte order and format agree.
  if (PalmIsChosen(window))
    WritePalmDatabase(stream, lines);
  else
    WritePocketPcFile(stream, lines);
  stream->Close();
}

}  // namespace celestrix
