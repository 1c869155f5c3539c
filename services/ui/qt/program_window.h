#pragma once

class QWidget;

namespace celestrix {

/// The window to which the program's dialogs and alerts belong, also while another program's is the active one (as
/// when something was dragged from there); null while none is shown.
QWidget* ProgramWindow();

}  // namespace celestrix
