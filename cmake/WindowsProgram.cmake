# morvane_windows_program(TARGET DESCRIPTION): gives a program of ours its resources on Windows. Where a file
# is opened with it, the system calls it by the description.
function(morvane_windows_program OUTPUT_NAME DESCRIPTION)
  string(REPLACE "." "," VERSION_NUMBERS "${PROJECT_VERSION}.0.0.0.0")
  string(REGEX MATCH "^[0-9]+,[0-9]+,[0-9]+,[0-9]+" VERSION_NUMBERS ${VERSION_NUMBERS})
  set(resources ${CMAKE_CURRENT_BINARY_DIR}/${OUTPUT_NAME}.rc)
  configure_file(${PROJECT_SOURCE_DIR}/apps/windows/program.rc.in ${resources} @ONLY)
  set_source_files_properties(${resources} PROPERTIES OBJECT_DEPENDS
    "${PROJECT_SOURCE_DIR}/packaging/icons/morvane.ico;${PROJECT_SOURCE_DIR}/apps/windows/program.manifest")
  target_sources(${OUTPUT_NAME} PRIVATE ${resources})
endfunction()
