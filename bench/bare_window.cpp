// bare_window: shows the bare window. How quickly it is there is what the program's start is measured against.
#include "bare_window.h"

#include <QApplication>

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  BareWindow window;
  window.show();
  return QApplication::exec();
}
