#pragma once

#include "services/ui/application.h"

namespace celestrix {

/// The program from its start to its end. Besides main, the tests and the benchmark of the window run it with this.
class Program {
 public:
  /// Starts the runtime. `argc` and `argv` must stay valid and unchanged.
  Program(int& argc, char** argv);
  /// Releases what the whole program shares, and ends the runtime.
  ~Program();

  /// Makes everything that the program needs, and opens the main window.
  void Start();
  /// Starts, and runs the event loop until Quit; returns the exit status.
  int _Main();

 private:
  Runtime runtime_;
};

}  // namespace celestrix
