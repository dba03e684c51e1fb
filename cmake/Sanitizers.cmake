# TORMELK_SANITIZE instruments the whole tree; a finding ends the program, so that no test can
# pass over it. Checked containers go with it: the standard library then reports bad indexes.
if(TORMELK_SANITIZE)
  add_compile_options(-fsanitize=${TORMELK_SANITIZE} -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${TORMELK_SANITIZE})
  add_compile_definitions(_GLIBCXX_ASSERTIONS)
endif()
