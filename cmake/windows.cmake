# What is built for Windows only: the platform on real windows, the hook library, the programs.
set(CMAKE_SHARED_LIBRARY_PREFIX "")

corvel_library(win32 src/platform/win32 platform base)
if(TARGET corvel_win32)
  target_link_libraries(corvel_win32 PUBLIC comctl32 comdlg32 winmm version)
endif()

# What replaces calls of the compiler's library that Windows 95 and 98 don't have. It works only as
# an object on the linker's command line, so it stands in no archive.
set(win9x_imports src/platform/win32/win9x_imports.cpp)
add_library(corvel_win9x OBJECT ${win9x_imports})
target_link_libraries(corvel_win9x corvel_options)
if(TARGET corvel_win32)
  get_target_property(sources corvel_win32 SOURCES)
  list(FILTER sources EXCLUDE REGEX "win9x_imports")
  set_target_properties(corvel_win32 PROPERTIES SOURCES "${sources}")
endif()

# The library that works inside the client's process. It links nothing of ours but plain headers.
file(GLOB hook_sources CONFIGURE_DEPENDS src/platform/hook/*.cpp)
if(hook_sources)
  add_library(corvelhk SHARED ${hook_sources})
  target_link_libraries(corvelhk corvel_options corvel_win9x)
  target_link_options(corvelhk PRIVATE -Wl,--kill-at)
endif()

# corvel_program(NAME FOLDER DEPENDENCY...): a program with windows, from all sources of a folder.
function(corvel_program name folder)
  file(GLOB sources CONFIGURE_DEPENDS ${folder}/*.cpp ${folder}/*.rc)
  if(NOT sources)
    return()
  endif()
  add_executable(${name} WIN32 ${sources})
  target_link_libraries(${name} corvel_win9x)
  foreach(dependency ${ARGN})
    if(TARGET corvel_${dependency})
      target_link_libraries(${name} corvel_${dependency})
    endif()
  endforeach()
endfunction()

corvel_program(corvel32 src/app/win32 app win32)
corvel_program(practice practice/win32 practice win32)

# The program that starts the client, as the client's folder has it.
corvel_program(aol practice/aol)
if(TARGET aol)
  target_link_libraries(aol corvel_options)
endif()

# The asking end of the practice client's channel: for runners, and for launch32.dll.
add_library(corvel_practice_channel STATIC practice/win32/channel.cpp practice/win32/channel_client.cpp)
target_link_libraries(corvel_practice_channel PUBLIC corvel_options)

include(src/runtime/runtime.cmake)

# The scenario runner, on the console: the program in its own process, with its icon, and
# practice.exe and aol.exe beside it.
file(GLOB sources CONFIGURE_DEPENDS tools/win32/*.cpp src/app/win32/*.rc)
add_executable(corvel-win ${sources})
target_link_libraries(corvel-win corvel_scenario corvel_win32 corvel_practice_channel)
