# Takes away what was installed from BUILD: files, links, and the folders that were made for them.
# DESTDIR must be what it was then.

file(GLOB manifests ${BUILD}/install_manifest*.txt)
if(NOT manifests)
  message(FATAL_ERROR "Nothing is installed from ${BUILD}.")
endif()
foreach(manifest ${manifests})
  file(STRINGS ${manifest} files)
  foreach(file ${files})
    message(STATUS "Removing: $ENV{DESTDIR}${file}")
    file(REMOVE $ENV{DESTDIR}${file})
  endforeach()
endforeach()

set(folders)
if(EXISTS ${BUILD}/installed/folders.txt)
  file(STRINGS ${BUILD}/installed/folders.txt folders)
endif()
list(REMOVE_DUPLICATES folders)
list(SORT folders ORDER DESCENDING)  # what lies in a folder comes before it
foreach(folder ${folders})
  file(GLOB inside LIST_DIRECTORIES true ${folder}/* ${folder}/.[!.]*)
  if(IS_DIRECTORY ${folder} AND NOT inside)
    file(REMOVE_RECURSE ${folder})
  endif()
endforeach()
file(REMOVE ${manifests} ${BUILD}/installed/folders.txt)
