# Takes away all that was ever installed from BUILD: files, links, and the folders that were made for them.

cmake_minimum_required(VERSION 3.22)
include(${CMAKE_CURRENT_LIST_DIR}/DesktopCaches.cmake)

if(EXISTS ${BUILD}/installed/begun)
  message(WARNING "An installation from ${BUILD} was broken off. What it had put down is known nowhere, and "
                  "stays. To take it away, install once more and then uninstall.")
endif()
if(NOT EXISTS ${BUILD}/installed/files.txt)
  message(FATAL_ERROR "Nothing is installed from ${BUILD}.")
endif()
file(STRINGS ${BUILD}/installed/files.txt files)
list(REMOVE_DUPLICATES files)
set(left)
foreach(file ${files})
  message(STATUS "Removing: ${file}")
  file(REMOVE "${file}")  # is silent about what it can't do
  if(EXISTS "${file}" OR IS_SYMLINK "${file}")
    list(APPEND left ${file})
  endif()
endforeach()
if(left)
  list(JOIN left "\n  " left)
  message(FATAL_ERROR "These could not be removed:\n  ${left}\nThe list of what is installed is kept.")
endif()

set(folders)
if(EXISTS ${BUILD}/installed/folders.txt)
  file(STRINGS ${BUILD}/installed/folders.txt folders)
endif()
morvane_tell_desktop(FALSE ${files})
morvane_forget_caches("${folders}" ${files})
list(REMOVE_DUPLICATES folders)
list(SORT folders ORDER DESCENDING)  # what lies in a folder comes before it
foreach(folder ${folders})
  file(GLOB inside LIST_DIRECTORIES true ${folder}/* ${folder}/.[!.]*)
  if(IS_DIRECTORY ${folder} AND NOT inside)
    file(REMOVE_RECURSE ${folder})
  endif()
endforeach()
file(GLOB manifests ${BUILD}/install_manifest*.txt)
file(REMOVE ${manifests} ${BUILD}/installed/begun ${BUILD}/installed/files.txt
            ${BUILD}/installed/folders.txt)
