#pragma once

#include <QApplication>
#include <QMainWindow>

namespace celestrix {

/// The window to which the program's dialogs and alerts belong, also while another program's is the active one (as
/// when something was dragged from there); null while none is shown.
inline QWidget* ProgramWindow() {
  for (QWidget* window : QApplication::topLevelWidgets())
    if (window->isVisible() && qobject_cast<QMainWindow*>(window) != nullptr) return window;
  return nullptr;
}

}  // namespace celestrix
