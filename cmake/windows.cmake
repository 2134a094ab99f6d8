# What is built for Windows only: the platform on real windows, the hook library, the programs.
set(CMAKE_SHARED_LIBRARY_PREFIX "")

corvel_library(win32 src/platform/win32 base)
if(TARGET corvel_win32)
  target_link_libraries(corvel_win32 PUBLIC comctl32 comdlg32 winmm version)
endif()

# The library that works inside the client's process. It links nothing of ours but plain headers.
file(GLOB hook_sources CONFIGURE_DEPENDS src/platform/hook/*.cpp)
if(hook_sources)
  add_library(corvelhk SHARED ${hook_sources})
  target_link_libraries(corvelhk corvel_options)
  target_link_options(corvelhk PRIVATE -Wl,--kill-at)
endif()

# corvel_program(NAME FOLDER DEPENDENCY...): a program with windows, from all sources of a folder.
function(corvel_program name folder)
  file(GLOB sources CONFIGURE_DEPENDS ${folder}/*.cpp ${folder}/*.rc)
  if(NOT sources)
    return()
  endif()
  add_executable(${name} WIN32 ${sources})
  foreach(dependency ${ARGN})
    if(TARGET corvel_${dependency})
      target_link_libraries(${name} corvel_${dependency})
    endif()
  endforeach()
endfunction()

corvel_program(corvel32 src/app/win32 app win32)
corvel_program(practice practice/win32 practice win32)
