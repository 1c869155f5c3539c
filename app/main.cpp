// The program's start and end.
#include "app/app.h"
#include "app/file_types.h"
#include "window/menu_bar.h"
#include "window/window1.h"

namespace celestrix {

namespace {

void _InitFileTypes() { FileTypes1::_Initialize(); }

void _NewAppInstance() {
  const Ref<App> app = New<App>();
  app->MenuBar(MenuBar1::Shared());
  RegisterApplication(app);
}

void _MakeDefaultView() { Window1::Shared(); }

/// The whole run, between the runtime's start and end; returns the exit status.
int _Main(Runtime& runtime) {
  _InitFileTypes();  // before anything that shows a dialog or accepts a drop
  _NewAppInstance();
  _MakeDefaultView();
  return runtime.RunEventLoop();
}

void Finalise() {
  ReleaseImplicitWindows();
  RegisterApplication(nullptr);
  MenuBar1::Release();
  FileTypes1::Release();
}

}  // namespace

}  // namespace celestrix

int main(int argc, char** argv) {
  using namespace celestrix;
  Runtime runtime(argc, argv, "celestrix-satellite-encoder"_s);
  const int status = _Main(runtime);
  Finalise();
  return status;
}
