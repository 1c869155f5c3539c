#pragma once

#include "services/ui/window.h"

namespace celestrix {

/// The index of the format whose radio button is chosen; the last one's if none is.
std::int32_t ChosenFormat(const Ref<Window>& window);

/// What "Save..." does: asks where to save, and writes the text of the window's field `txt` there, in the format that
/// is chosen by its radio buttons `FileFormat`. Says nothing if the user cancels or a write fails. Does not change the
/// window's state. Raises NilObjectException when the file cannot be created.
void Save(const Ref<Window>& window);

}  // namespace celestrix
