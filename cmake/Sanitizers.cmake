# TORMELK_SANITIZE instruments the whole tree; a finding ends the program, so that no test can
# pass over it. Checked containers go with it: the standard library then reports bad indexes.
if(TORMELK_SANITIZE)
  add_compile_options(-fsanitize=${TORMELK_SANITIZE} -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${TORMELK_SANITIZE})
  add_compile_definitions(_GLIBCXX_ASSERTIONS)
endif()

# Tests leave the processors to the emulated machine of the tests on a real kernel, where seconds
# count. (What stands in front of the programs would be an emulator for another kind of machine.)
if(TORMELK_SANITIZE)
  set(CMAKE_CROSSCOMPILING_EMULATOR nice --adjustment=5)
endif()

# What tests need in their environment, as properties of a test. Leaks that are not ours are listed
# in lsan.supp.
set(TORMELK_SANITIZER_PROPERTIES)
if(TORMELK_SANITIZE MATCHES "address")
  set(TORMELK_SANITIZER_PROPERTIES ENVIRONMENT_MODIFICATION
      "LSAN_OPTIONS=set:suppressions=${CMAKE_CURRENT_LIST_DIR}/lsan.supp:print_suppressions=0")
endif()

# Instrumented code is slow, and slow to compile with optimisation. These options are for what runs
# for long: the rooms, and the source files of a few tests.
set(TORMELK_SANITIZER_OPTIMISATION)
if(TORMELK_SANITIZE)
  set(TORMELK_SANITIZER_OPTIMISATION -O1)
endif()

# tormelk_optimise_sanitized(FILE...): source files of the folder that run for long.
function(tormelk_optimise_sanitized)
  if(TORMELK_SANITIZE)
    set_source_files_properties(${ARGN} PROPERTIES
      COMPILE_OPTIONS "${TORMELK_SANITIZER_OPTIMISATION}" SKIP_PRECOMPILE_HEADERS ON)
  endif()
endfunction()
