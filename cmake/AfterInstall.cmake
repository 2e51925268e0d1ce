# Runs after an installation. Adds what was installed to the list for Uninstall.cmake, which so knows of
# every place that this build was ever installed in, and tells the desktop.

include(${CMAKE_CURRENT_LIST_DIR}/DesktopCaches.cmake)

get_filename_component(root "$ENV{DESTDIR}/" ABSOLUTE)
set(installed)
foreach(file ${CMAKE_INSTALL_MANIFEST_FILES})
  set(file "${root}${file}")
  cmake_path(NORMAL_PATH file)
  list(APPEND installed ${file})
  file(APPEND ${MORVANE_BUILD}/installed/files.txt "${file}\n")
endforeach()
file(REMOVE ${MORVANE_BUILD}/installed/begun)

# What is collected in a folder for a package does this where it is unpacked.
if("$ENV{DESTDIR}" STREQUAL "")
  morvane_tell_desktop(TRUE ${installed})
endif()
