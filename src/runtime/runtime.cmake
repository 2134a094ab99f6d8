# The runtime files that start-up looks for in the system folder, as small version-stamped
# libraries in the folder runtime/ of the build. docs/runtime-files.md tells what each one is.
enable_language(RC)

# corvel_runtime(FILE SOURCE TEXT DEPENDENCY...): SOURCE "" for a library that only has to be there.
function(corvel_runtime file source text)
  get_filename_component(RUNTIME_NAME ${file} NAME_WE)
  get_filename_component(extension ${file} EXT)
  set(RUNTIME_FILE ${file})
  set(RUNTIME_TEXT ${text})
  set(resource ${CMAKE_CURRENT_BINARY_DIR}/runtime-rc/${RUNTIME_NAME}.rc)
  configure_file(${CMAKE_CURRENT_SOURCE_DIR}/src/runtime/runtime.rc.in ${resource} @ONLY)
  if(source STREQUAL "")
    set(source src/runtime/runtime.cpp)
  endif()
  add_library(${RUNTIME_NAME} SHARED ${source} ${resource})
  set_target_properties(${RUNTIME_NAME} PROPERTIES SUFFIX ${extension}
    RUNTIME_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/runtime UNITY_BUILD OFF)
  target_link_libraries(${RUNTIME_NAME} corvel_options corvel_win9x ${ARGN})
  # Undecorated names, whatever the calling convention.
  target_link_options(${RUNTIME_NAME} PRIVATE -Wl,--kill-at)
  add_dependencies(runtime ${RUNTIME_NAME})
endfunction()

add_custom_target(runtime)
corvel_runtime(dwqrvspy.dll "" "Private windows")
corvel_runtime(dwspy5.dll "" "Window hooks")
corvel_runtime(qrvproxy.dll "" "Client proxy")
corvel_runtime(qrverrhd.dll "" "Error dialog")
corvel_runtime(qrvbtns.ocx "" "Flat buttons")
corvel_runtime(qrvbar.ocx "" "Progress bar")
corvel_runtime(qrvspy32.ocx "" "Chat lines")
corvel_runtime(dwsbc36.ocx "" "Subclassing")
corvel_runtime(mscomctl.ocx "" "Common controls")
corvel_runtime(dwspy36.dll "" "Foreign memory")
corvel_runtime(inetwh32.dll "" "Help")
corvel_runtime(launch32.dll practice/launch32/launch32.cpp "Client answers"
  corvel_practice_channel)
# Not looked for in the system folder, but beside the client: the mark of one of 32 bits.
corvel_runtime(iwengx32.dll "" "Practice client")
