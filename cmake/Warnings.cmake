# The warnings every target of this tree is built with. They are errors in the project's own
# builds (see CMakePresets.json), not in those of a packager with another compiler.
# GCC 12 takes "text" + std::string for an overlapping copy when it optimises (its bug 105651).
add_library(tormelk-warnings INTERFACE)
target_compile_options(tormelk-warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
  -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align -Wnull-dereference -Wimplicit-fallthrough
  $<$<AND:$<CONFIG:Release>,$<CXX_COMPILER_ID:GNU>>:-Wno-restrict>
  $<$<BOOL:${TORMELK_WARNINGS_AS_ERRORS}>:-Werror>)
