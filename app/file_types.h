// The kinds of file that the program reads and writes. This header and its source need only services/base/, so
// core/ and window/ may include the header too.
#pragma once

#include "services/base/file_type.h"

namespace celestrix::FileTypes1 {

/// Makes the three types and registers them. Called once, before any dialog, drop or file creation.
void _Initialize();

/// Each returns the same object on every call between _Initialize and its release.
Ref<FileType> TextFile();
Ref<FileType> PPCFile();
Ref<FileType> PDBFile();

/// Each releases one type, at the end of the program.
void ReleaseTextFile();
void ReleasePPCFile();
void ReleasePDBFile();

}  // namespace celestrix::FileTypes1
