# Runs before an installation. Says what was not built and so will not be there, and notes the folders
# that the installation makes, for Uninstall.cmake.

foreach(part pages/man1 pages/man5 pages/bash pages/zsh pages/fish guide)
  file(GLOB files ${MORVANE_BUILD}/${part}/*)
  if(NOT files)
    message(WARNING "${part} was not built, and is not installed.")
  endif()
endforeach()

# What lies there until AfterInstall.cmake says: an installation that was broken off.
file(TOUCH ${MORVANE_BUILD}/installed/begun)

get_filename_component(root "$ENV{DESTDIR}/" ABSOLUTE)
foreach(folder ${MORVANE_FOLDERS})
  cmake_path(ABSOLUTE_PATH folder BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX} NORMALIZE)
  cmake_path(RELATIVE_PATH folder BASE_DIRECTORY "/")
  set(folder ${root}/${folder})
  cmake_path(NORMAL_PATH folder)
  while(NOT EXISTS ${folder} AND NOT folder STREQUAL "/")
    file(APPEND ${MORVANE_BUILD}/installed/folders.txt "${folder}\n")
    cmake_path(GET folder PARENT_PATH folder)
  endwhile()
endforeach()
