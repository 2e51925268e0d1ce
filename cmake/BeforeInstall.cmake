# Runs before an installation. Says what was not built and so will not be there, and notes the folders
# that the installation makes, for Uninstall.cmake.

foreach(part pages/man1 pages/man5 pages/bash pages/zsh pages/fish guide)
  file(GLOB files ${MORVANE_BUILD}/${part}/*)
  if(NOT files)
    message(WARNING "${part} was not built, and is not installed.")
  endif()
endforeach()

foreach(folder ${MORVANE_FOLDERS})
  cmake_path(ABSOLUTE_PATH folder BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX} NORMALIZE)
  while(NOT EXISTS $ENV{DESTDIR}${folder} AND NOT folder STREQUAL "/")
    file(APPEND ${MORVANE_BUILD}/installed/folders.txt "$ENV{DESTDIR}${folder}\n")
    cmake_path(GET folder PARENT_PATH folder)
  endwhile()
endforeach()
