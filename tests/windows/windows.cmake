# The tests of the program for Windows. They run in Wine, and need no display.
find_package(Qt6 REQUIRED COMPONENTS Test)
set(CMAKE_AUTOMOC ON)

foreach(test core/conversion windows/windows)
  cmake_path(GET test PARENT_PATH folder)
  cmake_path(GET test FILENAME name)
  add_executable(test_${name} ${folder}/test_${name}.cpp)
  target_link_libraries(test_${name} PRIVATE program Qt6::Test)
  add_test(NAME ${test} COMMAND test_${name} -o -,txt) # else it writes to the debugger
endforeach()
