# The windows and adapters of a room, with the real forms.
foreach(folder net/qt widgets smtp/qt dialogs/qt roster/qt app/qt)
  turnpost_test(${folder} support/TestMain.cpp)
  string(REPLACE "/" "_" room ${folder})
  target_link_libraries(test_${room} PRIVATE turnpost_automation)
  if(CMAKE_CROSSCOMPILING)
    # A static Qt holds only the plugins that are named.
    qt_import_plugins(test_${room} INCLUDE Qt6::QOffscreenIntegrationPlugin)
  endif()
endforeach()

target_compile_definitions(test_smtp_qt PRIVATE TURNPOST_TESTS="${CMAKE_CURRENT_SOURCE_DIR}")

if(CMAKE_CROSSCOMPILING)
  return() # The tests below start programs from scripts of this system.
endif()
# All that a host does, from an empty folder to both reports.
add_test(NAME Demo.EveryMessageArrives
  COMMAND sh -c "rm -rf demo && mkdir demo && exec \"$0\" --headless demo"
          $<TARGET_FILE:turnpost_demo>)

# The real program, used by keys and a screen reader alone, with a session bus of its own.
add_test(NAME Desktop.EverythingWorksByKeysAndScreenReader
  COMMAND /usr/bin/python3 ${CMAKE_CURRENT_SOURCE_DIR}/app/evening_by_keys.py
          $<TARGET_FILE:turnpost> ${CMAKE_CURRENT_SOURCE_DIR}/support/mailbox_server.py)
set_tests_properties(Demo.EveryMessageArrives Desktop.EverythingWorksByKeysAndScreenReader PROPERTIES
  TIMEOUT 300 ENVIRONMENT "${TURNPOST_TEST_ENVIRONMENT}")
