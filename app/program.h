#pragma once

#include "services/ui/application.h"

namespace celestrix {

/// The program from its start to its end. Whoever runs it in another way than main does (the tests, the benchmark of
/// the window) starts and ends it with this as well.
class Program {
 public:
  /// Starts the runtime. `argc` and `argv` must stay as they are.
  Program(int& argc, char** argv);
  /// Releases what the whole program shares, and ends the runtime.
  ~Program();

  /// Makes everything up to the main window, which is open afterwards.
  void Start();
  /// Starts, and runs the event loop until Quit; returns the exit status.
  int _Main();

 private:
  Runtime runtime_;
};

}  // namespace celestrix
