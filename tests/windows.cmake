# A mail client that records what it is asked.
add_library(RecordingProvider MODULE mapi/windows/RecordingProvider.cpp)
set_target_properties(RecordingProvider PROPERTIES PREFIX "")
target_link_libraries(RecordingProvider PRIVATE turnpost_mapi)

turnpost_test(mapi/windows)
target_link_libraries(test_mapi_windows PRIVATE turnpost_app)
add_dependencies(test_mapi_windows RecordingProvider)

# The tests that depend on the system's code page, with UTF-8 as that code page.
enable_language(RC)
foreach(program test_text test_files test_storage test_smtp test_app test_mapi_windows)
  add_executable(${program}_utf8
    $<TARGET_OBJECTS:${program}> ${CMAKE_CURRENT_SOURCE_DIR}/text/windows/utf8.rc)
  target_link_libraries(${program}_utf8 PRIVATE $<TARGET_PROPERTY:${program},LINK_LIBRARIES>)
  turnpost_add_tests(${program}_utf8)
  set_tests_properties(${program}_utf8 PROPERTIES ENVIRONMENT TURNPOST_CODE_PAGE=65001
    FAIL_REGULAR_EXPRESSION "Running 0 tests")
endforeach()
