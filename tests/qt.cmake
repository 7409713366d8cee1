# The windows and adapters of a room, with the real forms.
function(turnpost_qt_test room)
  list(TRANSFORM ARGN PREPEND ${room}/qt/)
  add_executable(test_${room}_qt ${ARGN} support/TestMain.cpp)
  target_include_directories(test_${room}_qt PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(test_${room}_qt PRIVATE turnpost_desk GTest::gtest)
  gtest_discover_tests(test_${room}_qt DISCOVERY_TIMEOUT 60
    PROPERTIES TIMEOUT 120 ENVIRONMENT "${TURNPOST_TEST_ENVIRONMENT}")
endfunction()

set(TURNPOST_TEST_ENVIRONMENT "LSAN_OPTIONS=suppressions=${CMAKE_CURRENT_SOURCE_DIR}/support/leaks.supp")

turnpost_qt_test(platform TcpSocketTest.cpp FormTest.cpp)
turnpost_qt_test(smtp FaultTest.cpp FullGameTest.cpp SendingReportTest.cpp)
target_sources(test_smtp_qt PRIVATE support/MailServer.cpp support/Resources.cpp)
target_compile_definitions(test_smtp_qt PRIVATE TURNPOST_TESTS="${CMAKE_CURRENT_SOURCE_DIR}")
turnpost_qt_test(dialogs DialogsTest.cpp FilePickerTest.cpp)
turnpost_qt_test(roster MainWindowTest.cpp)
turnpost_qt_test(app ControlsTest.cpp DesktopTest.cpp)

# The whole way of a host, from an empty folder to both reports.
add_test(NAME Demo.EveryMessageArrivesAsItShould
  COMMAND sh -c "rm -rf demo && mkdir demo && exec \"$0\" --headless demo"
          $<TARGET_FILE:turnpost_demo>)
set_tests_properties(Demo.EveryMessageArrivesAsItShould PROPERTIES
  TIMEOUT 120 ENVIRONMENT "${TURNPOST_TEST_ENVIRONMENT}")

if(NOT WIN32)
  # As a host who uses neither mouse nor screen, in the real program, on the buses of a desktop.
  add_test(NAME Desktop.WholeEveningByKeysAsAScreenReaderReadsIt
    COMMAND dbus-run-session -- /usr/bin/python3 ${CMAKE_CURRENT_SOURCE_DIR}/app/evening_by_keys.py
            $<TARGET_FILE:turnpost> ${CMAKE_CURRENT_SOURCE_DIR}/support/mailbox_server.py)
  set_tests_properties(Desktop.WholeEveningByKeysAsAScreenReaderReadsIt PROPERTIES
    TIMEOUT 120 ENVIRONMENT "${TURNPOST_TEST_ENVIRONMENT}")
endif()
