# With TORMELK_LINT nothing is compiled: the build has clang-tidy read all source files, several in
# one unit, and again only the units in which something changed. The rules stand in .clang-tidy and tests/.clang-tidy; their
# checksums are part of the command, so that changed rules lint everything again.
if(TORMELK_LINT)
  # There is nothing to link, and there are no tests to run.
  set(touch "<CMAKE_COMMAND> -E touch <TARGET>")
  set(CMAKE_CXX_LINK_EXECUTABLE "${touch}")
  set(CMAKE_CXX_CREATE_SHARED_MODULE "${touch}")
  set(CMAKE_CXX_ARCHIVE_CREATE "${touch}")
  set(CMAKE_CXX_ARCHIVE_FINISH "")
  set(CMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE PRE_TEST)
  # For tormelk_lint_together.
  find_package(ALSA 1.2 REQUIRED)
  find_package(nlohmann_json 3.11 REQUIRED)
endif()

# tormelk_lint_by(FILE): the rules for this folder and those below it.
function(tormelk_lint_by rules)
  if(NOT TORMELK_LINT)
    return()
  endif()
  set(checksums "")
  foreach(file "${PROJECT_SOURCE_DIR}/.clang-tidy" "${rules}" "${PROJECT_SOURCE_DIR}/cmake/lintUnit")
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${file}")
    file(MD5 "${file}" checksum)
    string(APPEND checksums "${checksum}")
  endforeach()
  set(CMAKE_CXX_COMPILER_LAUNCHER
      "${PROJECT_SOURCE_DIR}/cmake/lintUnit" "${rules}" "${checksums}" PARENT_SCOPE)
endfunction()

# tormelk_allow_units(): once all targets are known. No source file may include another, but a unit
# does.
function(tormelk_allow_units)
  tormelk_collect_targets(targets "${PROJECT_SOURCE_DIR}"
                          "EXECUTABLE;STATIC_LIBRARY;OBJECT_LIBRARY;MODULE_LIBRARY")
  set_target_properties(${targets} PROPERTIES UNITY_BUILD_CODE_BEFORE_INCLUDE
                        "// NOLINTNEXTLINE(bugprone-suspicious-include)")
endfunction()

# tormelk_lint_together(NAME LIBRARIES...): has the source files of the rooms, or of their tests, in this
# folder and those below it read as those of one target, so that units reach from one room to the
# next: most of the time goes into the libraries' headers, once for every unit. Called last in the
# folder, with the libraries whose headers are read. Of the targets themselves nothing is left.
function(tormelk_lint_together name)
  if(NOT TORMELK_LINT)
    return()
  endif()
  file(WRITE "${PROJECT_BINARY_DIR}/nothing.cpp" "")
  tormelk_collect_targets(libraries "${CMAKE_CURRENT_SOURCE_DIR}" "STATIC_LIBRARY")
  get_property(tests GLOBAL PROPERTY TORMELK_ROOM_TESTS)
  set(sources)
  set(definitions)
  foreach(target IN LISTS libraries tests)
    get_target_property(folder ${target} SOURCE_DIR)
    get_target_property(files ${target} SOURCES)
    foreach(file IN LISTS files)
      cmake_path(ABSOLUTE_PATH file BASE_DIRECTORY "${folder}")
      get_source_file_property(alone "${file}" TARGET_DIRECTORY ${target} SKIP_UNITY_BUILD_INCLUSION)
      list(APPEND sources "${file}")
      if(alone)
        set_source_files_properties("${file}" PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
      endif()
    endforeach()
    # The folders' own, and those of Qt's libraries, which CMake passes on but once.
    list(APPEND definitions
         "$<FILTER:$<TARGET_PROPERTY:${target},COMPILE_DEFINITIONS>,INCLUDE,^(TORMELK_|QT_.*_LIB)>")
    set_property(TARGET ${target} PROPERTY SOURCES "${PROJECT_BINARY_DIR}/nothing.cpp")
  endforeach()
  add_library(${name} OBJECT ${sources})
  target_compile_definitions(${name} PRIVATE QT_NO_KEYWORDS ${definitions})
  target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/src" "${PROJECT_SOURCE_DIR}/tests")
  target_link_libraries(${name} PRIVATE ${ARGN} tormelk-warnings)
endfunction()

# tormelk_lint_headers(NAME): has the headers of this folder and those below it read by themselves, for
# the paths through their inline functions; as part of the target that tormelk_lint_together has made.
function(tormelk_lint_headers name)
  if(NOT TORMELK_LINT)
    return()
  endif()
  file(GLOB_RECURSE headers CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.h")
  list(TRANSFORM headers REPLACE "(.+)" "#include \"\\1\"\n")
  list(JOIN headers "" headers)
  set(file "${CMAKE_CURRENT_BINARY_DIR}/everyHeader.cpp")
  file(CONFIGURE OUTPUT "${file}" CONTENT "${headers}" @ONLY)
  set_source_files_properties("${file}" PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
  target_sources(${name} PRIVATE "${file}")
endfunction()
