# How our own code is compiled: warnings are errors, ccache where there is one, src/ is the include
# root. A logic target does not link Qt, so a Qt header in it does not compile.

find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()

if(NOT MSVC)
  # Qt asks it of its users; when all have it, all tests share one precompiled header.
  add_compile_options(-fPIC)
endif()

if(MORVANE_SANITIZE)
  add_compile_options(-fsanitize=${MORVANE_SANITIZE} -fno-omit-frame-pointer
                      -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${MORVANE_SANITIZE})
endif()

if(MORVANE_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
  add_link_options(-fsanitize=address,undefined)
endif()

function(morvane_warnings target)
  if(MSVC)
    target_compile_options(${target} PRIVATE /W4 /WX)
  else()
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Werror)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
      # GCC 12 sees overlaps inside std::string's operator+ that are not there.
      target_compile_options(${target} PRIVATE -Wno-restrict)
    endif()
  endif()
endfunction()

# morvane_library(NAME SOURCES ... LINKS ...)
function(morvane_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC ${ARG_LINKS})
  morvane_warnings(${name})
endfunction()
