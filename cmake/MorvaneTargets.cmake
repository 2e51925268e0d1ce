# How our own code is compiled: warnings are errors but for a packager, whose compiler may know more of
# them; ccache where there is one, src/ is the include root. A logic target does not link Qt, so a Qt
# header in it does not compile.

find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()

if(NOT MSVC)
  # Qt asks it of its users; when all have it, they can share precompiled headers.
  add_compile_options(-fPIC)
endif()

if(MINGW)
  # Qt tells its users so; for the same reason.
  add_compile_definitions(MINGW_HAS_SECURE_API=1)
endif()

if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  # A precompiled header out of ccache is as good as a new one.
  add_compile_options("SHELL:-Xclang -fno-pch-timestamp")
endif()

if(MORVANE_SANITIZE)
  add_compile_options(-fsanitize=${MORVANE_SANITIZE} -fno-omit-frame-pointer
                      -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${MORVANE_SANITIZE})
endif()

if(MORVANE_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()

function(morvane_warnings target)
  if(MSVC)
    target_compile_options(${target} PRIVATE /W4 $<$<BOOL:${MORVANE_WERROR}>:/WX>)
  else()
    # A precompiled header that does not fit its user would otherwise be left out without a word.
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Winvalid-pch
                                             $<$<BOOL:${MORVANE_WERROR}>:-Werror>)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
      # GCC 12 sees overlaps and overflows inside std::string that are not there.
      target_compile_options(${target} PRIVATE -Wno-restrict -Wno-array-bounds -Wno-stringop-overflow)
    endif()
  endif()
endfunction()

# morvane_precompiled(NAME HEADERS ... [LINKS ...]): headers compiled once, for all targets that take
# them by target_precompile_headers(... REUSE_FROM NAME). Only those of others: ours change. That each
# file includes what it uses is proved where they are off, by tools/static-checks.
function(morvane_precompiled name)
  cmake_parse_arguments(ARG "" "" "HEADERS;LINKS" ${ARGN})
  set(source ${PROJECT_BINARY_DIR}/generated/${name}.cpp)
  file(CONFIGURE OUTPUT ${source} CONTENT "")
  add_library(${name} OBJECT ${source})
  target_link_libraries(${name} PRIVATE ${ARG_LINKS})
  target_precompile_headers(${name} PRIVATE ${ARG_HEADERS})
  morvane_warnings(${name})
endfunction()

set(MORVANE_STANDARD_HEADERS
    <algorithm> <array> <chrono> <cstddef> <cstdint> <filesystem> <functional> <map> <memory>
    <optional> <random> <span> <string> <string_view> <utility> <vector>)
morvane_precompiled(morvane_standard_headers HEADERS ${MORVANE_STANDARD_HEADERS})

# morvane_library(NAME SOURCES ... LINKS ... [PRECOMPILED NAME])
function(morvane_library name)
  cmake_parse_arguments(ARG "" "PRECOMPILED" "SOURCES;LINKS" ${ARGN})
  if(NOT ARG_PRECOMPILED)
    set(ARG_PRECOMPILED morvane_standard_headers)
  endif()
  add_library(${name} STATIC ${ARG_SOURCES})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC ${ARG_LINKS})
  target_precompile_headers(${name} REUSE_FROM ${ARG_PRECOMPILED})
  morvane_warnings(${name})
endfunction()
