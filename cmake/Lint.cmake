# With TORMELK_LINT every compilation runs clang-tidy too, so that only what changed is linted
# again. The rules stand in .clang-tidy; their checksum is part of the command, so that changed rules
# lint everything again.
if(TORMELK_LINT)
  find_program(TORMELK_CLANG_TIDY clang-tidy REQUIRED)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/.clang-tidy")
  file(MD5 "${PROJECT_SOURCE_DIR}/.clang-tidy" rules)
  set(CMAKE_CXX_CLANG_TIDY
      "${TORMELK_CLANG_TIDY};--quiet;--warnings-as-errors=*;--extra-arg=-Wno-unknown-warning-option;--extra-arg=-DTORMELK_LINT_RULES_${rules}")
endif()
