# Where an installed Pictray keeps its files (GNUInstallDirs), and where the
# executable finds its tray module: a path relative to the executable's own
# folder, so the installed tree works under any prefix and when moved.
include(GNUInstallDirs)
# Named by the package, as Debian wants the copyright and changelog.
set(PICTRAY_DOC_DIR "${CMAKE_INSTALL_DATADIR}/doc/pictray")

set(PICTRAY_MODULE_INSTALL_DIR "${CMAKE_INSTALL_LIBDIR}/pictray")
file(RELATIVE_PATH PICTRAY_MODULE_DIR_FROM_BIN
     "${CMAKE_INSTALL_FULL_BINDIR}" "${CMAKE_INSTALL_PREFIX}/${PICTRAY_MODULE_INSTALL_DIR}")
if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}" OR IS_ABSOLUTE "${CMAKE_INSTALL_BINDIR}")
  message(FATAL_ERROR "CMAKE_INSTALL_BINDIR and CMAKE_INSTALL_LIBDIR must be relative to the prefix")
endif()

set(PICTRAY_ZSH_COMPLETION_DIR "${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions"
    CACHE STRING "Where zsh finds completion functions, relative to the prefix")
set(PICTRAY_SCREENSHOT_URL "https://pictray.app/screenshots"
    CACHE STRING "Where the screenshots the AppStream data names are published")
set(PICTRAY_RELEASE_DATE "2026-11-24" CACHE STRING "The release date of this version (YYYY-MM-DD)")
set(PICTRAY_PACKAGE_RELEASE 1 CACHE STRING "The Debian revision of the package")
