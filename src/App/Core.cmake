# The parts of App that need no window (key combinations and their names)
# belong to the core library, so the tests and the command line reach them.
find_package(PkgConfig REQUIRED)
pkg_check_modules(XKBCOMMON REQUIRED IMPORTED_TARGET xkbcommon xkbcommon-x11)

target_sources(pictray_core PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/KeyCombo.cpp ${CMAKE_CURRENT_LIST_DIR}/KeyCombo.h
  ${CMAKE_CURRENT_LIST_DIR}/KeyboardLayout.cpp ${CMAKE_CURRENT_LIST_DIR}/KeyboardLayout.h
  ${CMAKE_CURRENT_LIST_DIR}/VirtualKeys.cpp ${CMAKE_CURRENT_LIST_DIR}/VirtualKeys.h)
target_link_libraries(pictray_core PRIVATE PkgConfig::XKBCOMMON)
