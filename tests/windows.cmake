# A mail client that records what it is asked.
add_library(RecordingProvider MODULE mapi/windows/RecordingProvider.cpp)
set_target_properties(RecordingProvider PROPERTIES PREFIX "")
target_link_libraries(RecordingProvider PRIVATE turnpost_mapi)

add_executable(test_mapi_windows mapi/windows/SimpleMapiTest.cpp)
target_include_directories(test_mapi_windows PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
target_link_libraries(test_mapi_windows PRIVATE turnpost_app GTest::gtest_main)
add_dependencies(test_mapi_windows RecordingProvider)
turnpost_add_tests(test_mapi_windows)

# The tests that depend on the system's code page, with UTF-8 as that code page.
enable_language(RC)
add_executable(test_text_utf8 $<TARGET_OBJECTS:test_text> text/windows/utf8.rc)
target_link_libraries(test_text_utf8 PRIVATE turnpost_text GTest::gtest_main)
turnpost_add_tests(test_text_utf8)
