#include "app/program.h"

#include "app/file_types.h"
#include "window/menu_bar.h"
#include "window/window1.h"

namespace celestrix {

namespace {

/// The application object. Everything it does is the framework's default behaviour.
class App : public Application {};

void _InitFileTypes() { FileTypes1::_Initialize(); }

void _NewAppInstance() {
  const Ref<App> app = New<App>();
  app->MenuBar(MenuBar1::Shared());
  RegisterApplication(app);
}

void _ApplicationAddMenuHandlers() {}  // the menu items do what their names and classes say

void _MakeDefaultView() { Window1::Shared(); }

}  // namespace

Program::Program(int& argc, char** argv) : runtime_(argc, argv, "celestrix-satellite-encoder"_s) {}

void Program::Start() {
  _InitFileTypes();  // before anything that shows a dialog or accepts a drop
  _NewAppInstance();
  _ApplicationAddMenuHandlers();
  _MakeDefaultView();
}

int Program::_Main() {
  Start();
  return runtime_.RunEventLoop();
}

Program::~Program() {
  ReleaseImplicitWindows();
  RegisterApplication(nullptr);
  MenuBar1::Release();
  FileTypes1::ReleaseTextFile();
  FileTypes1::ReleasePPCFile();
  FileTypes1::ReleasePDBFile();
}

}  // namespace celestrix
