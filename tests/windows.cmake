# Mail clients that record what they get; two of them lack calls.
foreach(name RecordingProvider WithoutUtf16 WithoutSending)
  add_library(${name} MODULE mapi/windows/RecordingProvider.cpp)
  set_target_properties(${name} PROPERTIES PREFIX "")
endforeach()
target_compile_definitions(WithoutUtf16 PRIVATE WITHOUT_UTF16)
target_compile_definitions(WithoutSending PRIVATE WITHOUT_SENDING)

add_executable(test_mapi_windows mapi/windows/SimpleMapiTest.cpp)
target_include_directories(test_mapi_windows PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
target_link_libraries(test_mapi_windows PRIVATE turnpost_mapi GTest::gtest_main)
add_dependencies(test_mapi_windows RecordingProvider WithoutUtf16 WithoutSending)
turnpost_add_tests(test_mapi_windows)
