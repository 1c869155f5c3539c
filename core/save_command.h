#pragma once

#include "services/ui/window.h"

namespace celestrix {

/// What "Save..." does: asks where to save, and writes the text of the window's field `txt` there,
/// in the format that its radio buttons `FileFormat` choose. Cancelling is quiet; so is a write that fails. The
/// window's state stays as it is. Raises NilObjectException when the file cannot be created.
void Save(const Ref<Window>& window);

}  // namespace celestrix
