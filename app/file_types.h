// The kinds of file that the program reads and writes. This header and its source are a leaf: they need
// nothing but services/, and any folder may include them.
#pragma once

#include "services/base/file_type.h"

namespace celestrix::FileTypes1 {

/// Makes the three types and registers them. Called once, before any dialog, drop or file creation.
void _Initialize();

/// Each returns the same object on every call between _Initialize and its release.
Ref<FileType> TextFile();
Ref<FileType> PPCFile();
Ref<FileType> PDBFile();

/// Each lets go of one type, at the program's end.
void ReleaseTextFile();
void ReleasePPCFile();
void ReleasePDBFile();

}  // namespace celestrix::FileTypes1
