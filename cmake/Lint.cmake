# With TORMELK_LINT every compilation runs clang-tidy too, so that only what changed is linted
# again. The rules stand in .clang-tidy.
if(TORMELK_LINT)
  find_program(TORMELK_CLANG_TIDY clang-tidy REQUIRED)
  set(CMAKE_CXX_CLANG_TIDY "${TORMELK_CLANG_TIDY};--quiet;--warnings-as-errors=*;--extra-arg=-Wno-unknown-warning-option")
endif()
