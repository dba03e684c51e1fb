# A room is a folder of src/ built as a static library. It names the rooms below it that it uses;
# it can include nothing else. RUNS_LONG: its code is worth optimising under the sanitizers, too.
#
#   tormelk_room(midi SOURCES ZQMIDIManager.cpp USES platform)
#   tormelk_room_tests(midi SOURCES ZQMIDIManagerTest.cpp USES midi)
function(tormelk_room name)
  cmake_parse_arguments(ROOM "RUNS_LONG" "" "SOURCES;USES;LIBRARIES" ${ARGN})
  if(ROOM_SOURCES)
    add_library(${name} STATIC ${ROOM_SOURCES})
    set(visibility PUBLIC)
    target_link_libraries(${name} PRIVATE tormelk-warnings)
    if(ROOM_RUNS_LONG)
      target_compile_options(${name} PRIVATE ${TORMELK_SANITIZER_OPTIMISATION})
    endif()
  else()
    add_library(${name} INTERFACE)
    set(visibility INTERFACE)
  endif()
  target_include_directories(${name} ${visibility} "${PROJECT_SOURCE_DIR}/src")
  target_link_libraries(${name} ${visibility} ${ROOM_USES} ${ROOM_LIBRARIES})
endfunction()

# The tests of a room: one program, one entry in CTest for every test case in it.
function(tormelk_room_tests name)
  cmake_parse_arguments(TEST "" "" "SOURCES;USES;LIBRARIES;PROPERTIES" ${ARGN})
  string(REPLACE "/" "-" program "${name}-tests")
  add_executable(${program} ${TEST_SOURCES})
  set_property(GLOBAL APPEND PROPERTY TORMELK_ROOM_TESTS ${program})
  target_include_directories(${program} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
  target_link_libraries(${program} PRIVATE ${TEST_USES} ${TEST_LIBRARIES} tormelk-warnings
                                           GTest::gmock_main)
  if(qt-test-main IN_LIST TEST_LIBRARIES)
    tormelk_use_precompiled(${program} headers-of-window-tests)
  else()
    tormelk_use_precompiled(${program} headers-of-tests)
  endif()
  gtest_discover_tests(${program} TEST_PREFIX "${name}: " DISCOVERY_TIMEOUT 60
                       PROPERTIES TIMEOUT 300 ${TORMELK_SANITIZER_PROPERTIES} ${TEST_PROPERTIES})
endfunction()
