# TORMELK_SANITIZE instruments the whole tree; a finding ends the program, so that no test can
# pass over it. Checked containers go with it: the standard library then reports bad indexes.
# Instrumented code makes the compiler suspect uninitialised values in the standard library's own
# headers (std::regex), so that one warning is left to the other builds.
if(TORMELK_SANITIZE)
  add_compile_options(-fsanitize=${TORMELK_SANITIZE} -fno-sanitize-recover=all
                      -fno-omit-frame-pointer -Wno-maybe-uninitialized)
  add_link_options(-fsanitize=${TORMELK_SANITIZE})
  add_compile_definitions(_GLIBCXX_ASSERTIONS)
endif()

# What tests need in their environment, as properties of a test. Leaks that are not ours are listed
# in lsan.supp.
set(TORMELK_SANITIZER_PROPERTIES)
if(TORMELK_SANITIZE MATCHES "address")
  set(TORMELK_SANITIZER_PROPERTIES ENVIRONMENT_MODIFICATION
      "LSAN_OPTIONS=set:suppressions=${CMAKE_CURRENT_LIST_DIR}/lsan.supp:print_suppressions=0")
endif()
