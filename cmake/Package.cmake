# The Debian package: `cpack -G DEB` in a build folder (scripts/package).
# Shared library dependencies are found by dpkg-shlibdeps; the QML modules
# and the platform plugins the tray program loads at run time are not linked,
# so they are named here.
set(CPACK_PACKAGE_NAME pictray)
set(CPACK_PACKAGE_VENDOR "The Pictray developers")
set(CPACK_PACKAGE_CONTACT "The Pictray developers <support@pictray.app>")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "tray picker for the Tabler icon set")
set(CPACK_PACKAGE_DESCRIPTION
    "Pictray lives in the tray: a global shortcut opens a floating picker where
you search the Tabler icons by name or tag and copy or drag one into any
application as SVG, a React or Vue component, a Blade or Tailwind snippet, a
data URI or a PNG. Favorites, recents and copying the last icon again work
from anywhere. The icon set ships inside the program, works offline and can
update itself to the newest release. Everything also works from the terminal.")
set(CPACK_PACKAGE_HOMEPAGE_URL "https://pictray.app")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/package)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE ${PICTRAY_PACKAGE_RELEASE})
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS
    "qml6-module-qtquick, qml6-module-qtquick-controls, qml6-module-qtquick-layouts, \
qml6-module-qtquick-templates, qml6-module-qtquick-window, qml6-module-qtqml, \
qml6-module-qtqml-workerscript, qt6-qpa-plugins")
# Wayland sessions run Pictray on Qt's Wayland platform (without it, XWayland);
# wl-copy carries copies made without a key press on wlroots compositors.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-wayland, wl-clipboard")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

include(CPack)
