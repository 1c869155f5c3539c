#pragma once

#include "services/ui/window.h"

namespace celestrix {

/// What "Save..." does: asks where to save, and writes the text of the window's field `txt` there, in the format that
/// is chosen by its radio buttons `FileFormat`. Says nothing if the user cancels or a write fails. Does not change the
/// window's state. Raises NilObjectException when the file cannot be created.
void Save(const Ref<Window>& window);

}  // namespace celestrix
