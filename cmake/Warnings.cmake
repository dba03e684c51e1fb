# The warnings every target of this tree is built with. They are errors in the project's own
# builds (see CMakePresets.json), not in those of a packager with another compiler.
#
# Two stay out of the release, where GCC 12 optimises until it alarms itself over the standard
# library's own headers: "text" + std::string as an overlapping copy (its bug 105651), and pointers
# that an earlier line has ruled out to be null. clang-tidy follows those through src/ in the lint.
add_library(tormelk-warnings INTERFACE)
target_compile_options(tormelk-warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
  -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
  $<$<NOT:$<CONFIG:Release>>:-Wnull-dereference> -Wimplicit-fallthrough
  $<$<AND:$<CONFIG:Release>,$<CXX_COMPILER_ID:GNU>>:-Wno-restrict>
  # Several source files in one unit are headers to the compiler: their types in nameless namespaces
  # alarm it. It sees each file alone in the other builds.
  $<$<AND:$<BOOL:${CMAKE_UNITY_BUILD}>,$<CXX_COMPILER_ID:GNU>>:-Wno-subobject-linkage>
  $<$<BOOL:${TORMELK_WARNINGS_AS_ERRORS}>:-Werror>)
