# The tests of the program for Windows. They run in Wine, and need no display.
find_package(Qt6 REQUIRED COMPONENTS Test)
set(CMAKE_AUTOMOC ON)

foreach(area conversion windows)
  add_executable(test_${area} test_${area}.cpp)
  target_link_libraries(test_${area} PRIVATE program Qt6::Test)
  add_test(NAME ${area} COMMAND test_${area} -o -,txt) # else it writes to the debugger
endforeach()
