#include "app/program.h"

int main(int argc, char** argv) {
  celestrix::Program program(argc, argv);
  return program._Main();
}
