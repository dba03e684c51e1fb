# With TORMELK_LINT nothing is compiled: the build has clang-tidy read all source files, several in
# one unit, and again only what changed. The rules stand in .clang-tidy and tests/.clang-tidy; their
# checksums are part of the command, so that changed rules lint everything again.
if(TORMELK_LINT)
  # There is nothing to link, and there are no tests to run.
  set(touch "<CMAKE_COMMAND> -E touch <TARGET>")
  set(CMAKE_CXX_LINK_EXECUTABLE "${touch}")
  set(CMAKE_CXX_CREATE_SHARED_MODULE "${touch}")
  set(CMAKE_CXX_ARCHIVE_CREATE "${touch}")
  set(CMAKE_CXX_ARCHIVE_FINISH "")
  set(CMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE PRE_TEST)
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
