# What every target of ours is built with: warnings as errors, and the sanitizers that the preset asks for.
add_library(lumbra_flags INTERFACE)
target_compile_options(lumbra_flags INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor
                                              -Wold-style-cast -Woverloaded-virtual -Wimplicit-fallthrough -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # GCC 12 sees overlaps in its own std::string where there are none (GCC bug 105651).
  target_compile_options(lumbra_flags INTERFACE -Wno-restrict)
endif()
target_compile_definitions(lumbra_flags INTERFACE QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_FOREACH
                                                  LUMBRA_VERSION="${PROJECT_VERSION}")
if(LUMBRA_SANITIZE)
  target_compile_options(lumbra_flags INTERFACE -fsanitize=${LUMBRA_SANITIZE} -fno-omit-frame-pointer
                                                -fno-sanitize-recover=all)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(lumbra_flags INTERFACE
                           # The instrumented code of std::regex makes GCC see uses before initialisation.
                           -Wno-maybe-uninitialized
                           # Qt's start-up code holds a fence that the thread sanitizer does not know.
                           -Wno-tsan)
  endif()
  target_link_options(lumbra_flags INTERFACE -fsanitize=${LUMBRA_SANITIZE})
endif()

# lumbra_room(NAME SOURCES file... LINKS target... USES target...): one room of the house, a library that links exactly
# what it may lean on: LINKS for its headers, USES for its sources alone.
function(lumbra_room name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS;USES" ${ARGN})
  add_library(lumbra_${name} STATIC ${ARG_SOURCES})
  target_include_directories(lumbra_${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
  target_link_libraries(lumbra_${name} PUBLIC ${ARG_LINKS} PRIVATE ${ARG_USES} lumbra_flags)
endfunction()
