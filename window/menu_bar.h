#pragma once

#include "services/ui/menu.h"

namespace celestrix {

/// The program's one menu bar: File and Edit, whose items do what their classes and names say (menu.h).
class MenuBar1 : public MenuBar {
 public:
  MenuBar1();

  /// The bar that the application and the window share, made on the first call.
  static Ref<MenuBar1> Shared();
  /// Releases it at the end of the program.
  static void Release();

 private:
  void Untitled0();  // the File menu
  void Untitled1();  // the Edit menu
};

}  // namespace celestrix
