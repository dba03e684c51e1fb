# Half of what compiling a test costs is reading the same headers once more. In the builds for the
# sanitizers the most used ones are read once and kept. The release, which has each source file by
# itself, and clang-tidy show that every file includes what it uses.

# tormelk_precompile(NAME LIBRARIES ... HEADERS ...): keeps the headers of these libraries.
function(tormelk_precompile name)
  cmake_parse_arguments(KEPT "" "" "LIBRARIES;DEFINITIONS;HEADERS" ${ARGN})
  if(NOT TORMELK_SANITIZE)
    return()
  endif()
  file(WRITE "${PROJECT_BINARY_DIR}/nothing.cpp" "")
  add_library(${name} OBJECT "${PROJECT_BINARY_DIR}/nothing.cpp")
  target_link_libraries(${name} PRIVATE ${KEPT_LIBRARIES} tormelk-warnings)
  target_compile_definitions(${name} PRIVATE ${KEPT_DEFINITIONS})
  target_precompile_headers(${name} PRIVATE ${KEPT_HEADERS})
endfunction()

# tormelk_use_precompiled(TARGET NAME)
function(tormelk_use_precompiled target name)
  if(TARGET ${name})
    target_precompile_headers(${target} REUSE_FROM ${name})
  endif()
endfunction()
