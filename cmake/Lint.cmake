# With TORMELK_LINT every compilation runs clang-tidy too, so that only what changed is linted
# again. The rules stand in .clang-tidy and tests/.clang-tidy; their checksums are part of the
# command, so that changed rules lint everything again.
if(TORMELK_LINT)
  find_program(TORMELK_CLANG_TIDY clang-tidy REQUIRED)
  set(rules)
  foreach(folder . tests)
    set(file "${PROJECT_SOURCE_DIR}/${folder}/.clang-tidy")
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${file}")
    file(MD5 "${file}" checksum)
    string(APPEND rules "_${checksum}")
  endforeach()
  set(CMAKE_CXX_CLANG_TIDY
      "${TORMELK_CLANG_TIDY};--quiet;--warnings-as-errors=*;--extra-arg=-Wno-unknown-warning-option;--extra-arg=-DTORMELK_LINT_RULES${rules}")
endif()
