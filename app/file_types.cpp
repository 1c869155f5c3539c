#include "app/file_types.h"

namespace celestrix::FileTypes1 {

namespace {

Ref<FileType> textFile;
Ref<FileType> ppcFile;
Ref<FileType> pdbFile;

struct Declaration {
  Ref<FileType>& slot;
  String Name;
  String Extensions;
  String MacType;
  String MacCreator;
};

}  // namespace

void _Initialize() {
  const Declaration declarations[] = {
      {textFile, "Text"_s, ".txt"_s, "TEXT"_s, "????"_s},
      {ppcFile, "PPC"_s, ".ppc"_s, "????"_s, "????"_s},
      {pdbFile, "PDB"_s, ".pdb"_s, "????"_s, "????"_s},
  };
  for (const Declaration& declaration : declarations) {
    declaration.slot = New<FileType>();
    declaration.slot->Name = declaration.Name;
    declaration.slot->Extensions = declaration.Extensions;
    declaration.slot->MacType = declaration.MacType;
    declaration.slot->MacCreator = declaration.MacCreator;
    static_cast<void>(String(*declaration.slot));  // the first conversion registers the type
  }
}

Ref<FileType> TextFile() { return textFile; }
Ref<FileType> PPCFile() { return ppcFile; }
Ref<FileType> PDBFile() { return pdbFile; }

void Release() {
  textFile = nullptr;
  ppcFile = nullptr;
  pdbFile = nullptr;
}

}  // namespace celestrix::FileTypes1
