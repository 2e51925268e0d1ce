# Desktops look at caches in place of the files themselves. Where there are no tools for them there is no
# desktop that would look.

cmake_minimum_required(VERSION 3.22)

# morvane_folders_of_desktop(FILES...): sets mime, applications and icons to the folders of those of these
# files that caches speak of, each of as many installations as there are.
function(morvane_folders_of_desktop)
  set(found_mime ${ARGN})
  list(FILTER found_mime INCLUDE REGEX "/packages/morvane\\.xml$")
  list(TRANSFORM found_mime REPLACE "/packages/[^/]*$" "")
  set(found_applications ${ARGN})
  list(FILTER found_applications INCLUDE REGEX "/morvane\\.desktop$")
  list(TRANSFORM found_applications REPLACE "/[^/]*$" "")
  set(found_icons ${ARGN})
  list(FILTER found_icons INCLUDE REGEX "/scalable/apps/morvane\\.svg$")
  list(TRANSFORM found_icons REPLACE "/scalable/apps/[^/]*$" "")
  foreach(kind mime applications icons)
    list(REMOVE_DUPLICATES found_${kind})
    set(${kind} ${found_${kind}} PARENT_SCOPE)
  endforeach()
endfunction()

# morvane_run(TOOL ARGUMENTS...): where it is; whether it succeeds is no matter of the installation.
function(morvane_run tool)
  find_program(found_${tool} ${tool})
  if(found_${tool})
    execute_process(COMMAND ${found_${tool}} ${ARGN} OUTPUT_QUIET ERROR_QUIET)
  endif()
endfunction()

# morvane_tell_desktop(NEW FILES...): what is installed, or was. When NEW is false, only caches that there are.
function(morvane_tell_desktop new)
  morvane_folders_of_desktop(${ARGN})
  foreach(folder ${mime})
    if(new OR EXISTS ${folder}/mime.cache)
      morvane_run(update-mime-database ${folder})
    endif()
  endforeach()
  foreach(folder ${applications})
    if(new OR EXISTS ${folder}/mimeinfo.cache)
      morvane_run(update-desktop-database -q ${folder})
    endif()
  endforeach()
  # Icons are found without a cache; one that is old hides them.
  foreach(folder ${icons})
    if(EXISTS ${folder}/icon-theme.cache)
      morvane_run(gtk-update-icon-cache -q -f -t ${folder})
    endif()
  endforeach()
endfunction()

# morvane_forget_caches(MADE FILES...): of folders in which nothing is left that a cache could speak of. Those
# of the types of files are many, and go only with their folder, when it is one of MADE.
function(morvane_forget_caches made)
  morvane_folders_of_desktop(${ARGN})
  foreach(folder ${mime})
    file(GLOB others ${folder}/packages/*)
    if(NOT others AND folder IN_LIST made)
      file(REMOVE_RECURSE ${folder})
    endif()
  endforeach()
  foreach(folder ${applications})
    file(GLOB_RECURSE others ${folder}/*.desktop)
    if(NOT others)
      file(REMOVE ${folder}/mimeinfo.cache)
    endif()
  endforeach()
endfunction()
