# The tests on real windows. They run beside one another badly: each owns the foreground.
find_path(CORVEL_GTEST src/gtest-all.cc PATHS /usr/src/googletest/googletest REQUIRED
  NO_CMAKE_FIND_ROOT_PATH)
add_library(corvel_gtest STATIC ${CORVEL_GTEST}/src/gtest-all.cc)
target_include_directories(corvel_gtest SYSTEM
  PUBLIC ${CMAKE_CURRENT_SOURCE_DIR}/platform/win32 ${CORVEL_GTEST}/include
  PRIVATE ${CORVEL_GTEST})

# The user's hand at real windows, by messages.
add_library(corvel_message_touch STATIC ${CMAKE_SOURCE_DIR}/tools/win32/message_touch.cpp)
target_link_libraries(corvel_message_touch PUBLIC corvel_hand corvel_win32)

# The conformance suite, and the other process that it looks at.
file(GLOB conformance CONFIGURE_DEPENDS platform/conformance_*_test.cpp)
add_executable(test_platform ${conformance} platform/home.cpp platform/win32/main.cpp
  platform/win32/own_windows_test.cpp platform/win32/services_test.cpp
  platform/win32/web_server.cpp platform/win32/win32_home.cpp platform/win32/wine_drives.cpp
  platform/win32/wine_printer.cpp)
target_link_libraries(test_platform corvel_message_touch corvel_gtest winspool ws2_32)
add_executable(conformance_other WIN32 platform/home.cpp platform/win32/other_main.cpp)
target_link_libraries(conformance_other corvel_win32)
set_target_properties(conformance_other PROPERTIES OUTPUT_NAME other)
# All of it stands in one folder, with the library that the hooks bring into the other process.
set_target_properties(test_platform conformance_other PROPERTIES
  RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR} CROSSCOMPILING_EMULATOR wine)
add_dependencies(test_platform conformance_other corvelhk)
add_test(NAME platform COMMAND test_platform --gtest_brief=1)
set_tests_properties(platform PROPERTIES RUN_SERIAL ON)

# The practice client as a process, seen through its channel.
add_executable(test_practice practice/win32/practice_exe_test.cpp)
target_link_libraries(test_practice corvel_practice_channel corvel_win32 corvel_gtest)
set_target_properties(test_practice PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}
  CROSSCOMPILING_EMULATOR wine)
add_dependencies(test_practice practice launch32)
add_test(NAME practice COMMAND test_practice --gtest_brief=1)
set_tests_properties(practice PROPERTIES RUN_SERIAL ON)

# The program's forms and controls as windows, under a user's hand.
file(GLOB win32forms CONFIGURE_DEPENDS win32forms/*.cpp)
add_executable(test_win32forms ${win32forms} platform/win32/main.cpp)
target_link_libraries(test_win32forms corvel_forms corvel_message_touch corvel_gtest)
set_target_properties(test_win32forms PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}
  CROSSCOMPILING_EMULATOR wine)
add_test(NAME win32forms COMMAND test_win32forms --gtest_brief=1)
set_tests_properties(win32forms PROPERTIES RUN_SERIAL ON)

# What runs inside the client: every way of dying and hanging, on both sides.
file(GLOB hook_tests CONFIGURE_DEPENDS hooks/*.cpp)
add_executable(hook_test ${hook_tests})
target_link_libraries(hook_test corvel_win32)
set_target_properties(hook_test PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}
  CROSSCOMPILING_EMULATOR wine)
add_dependencies(hook_test corvelhk)
set_target_properties(hook_test PROPERTIES UNITY_BUILD OFF)  # its parts play different programs
add_test(NAME hooks COMMAND hook_test)
set_tests_properties(hooks PROPERTIES RUN_SERIAL ON TIMEOUT 300)

# The whole program and the practice client, each in a process of its own, seen from outside.
file(GLOB program CONFIGURE_DEPENDS program/*.cpp)
add_executable(test_program ${program})
target_link_libraries(test_program corvel_practice_channel corvel_win32 corvel_gtest)
set_target_properties(test_program PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}
  CROSSCOMPILING_EMULATOR wine)
add_dependencies(test_program corvel32 corvelhk practice aol runtime)
add_test(NAME program COMMAND test_program --gtest_brief=1)
set_tests_properties(program PROPERTIES RUN_SERIAL ON TIMEOUT 300)

# The figures of real windows: ./bench runs them.
add_executable(hook_bench ${CMAKE_SOURCE_DIR}/benchmarks/win32_hook_bench.cpp)
target_link_libraries(hook_bench corvel_win32)
add_dependencies(hook_bench corvelhk)
add_executable(idle_baseline WIN32 ${CMAKE_SOURCE_DIR}/benchmarks/win32_idle_baseline.cpp)
target_link_libraries(idle_baseline corvel_options)
set_target_properties(hook_bench idle_baseline PROPERTIES
  RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})
