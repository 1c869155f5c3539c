#include "app/file_types.h"

namespace celestrix::FileTypes1 {

namespace {

Ref<FileType> textFile;
Ref<FileType> ppcFile;
Ref<FileType> pdbFile;

Ref<FileType> Declared(const String& name, const String& extensions, const String& macType, const String& macCreator) {
  Ref<FileType> type = New<FileType>();
  type->Name = name;
  type->Extensions = extensions;
  type->MacType = macType;
  type->MacCreator = macCreator;
  static_cast<void>(String(*type));  // the first conversion registers the type
  return type;
}

}  // namespace

void _Initialize() {
  textFile = Declared("Text"_s, ".txt"_s, "TEXT"_s, "????"_s);
  ppcFile = Declared("PPC"_s, ".ppc"_s, "????"_s, "????"_s);
  pdbFile = Declared("PDB"_s, ".pdb"_s, "????"_s, "????"_s);
}

Ref<FileType> TextFile() { return textFile; }
Ref<FileType> PPCFile() { return ppcFile; }
Ref<FileType> PDBFile() { return pdbFile; }

void ReleaseTextFile() { textFile = nullptr; }
void ReleasePPCFile() { ppcFile = nullptr; }
void ReleasePDBFile() { pdbFile = nullptr; }

}  // namespace celestrix::FileTypes1
