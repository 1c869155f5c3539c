#pragma once

class QWidget;

namespace celestrix {

/// The window to which the program's dialogs and alerts belong, even while another program's window is active (after a
/// drag from there, for example); null while none is shown.
QWidget* ProgramWindow();

}  // namespace celestrix
