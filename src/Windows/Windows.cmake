# The settings, about and onboarding windows (QML module Pictray.Windows) and
# their owner, the window manager.
add_library(pictray_windows STATIC
  AboutInfo.cpp AboutInfo.h
  AppPalette.cpp AppPalette.h
  GlyphImageProvider.cpp GlyphImageProvider.h
  WindowManager.cpp WindowManager.h)
target_link_libraries(pictray_windows
  PUBLIC pictray_gui pictray_windows_qml pictray_qml Qt6::Quick Qt6::QuickControls2 Qt6::Qml Qt6::Widgets
  PRIVATE pictray_warnings pictray_strict_strings)

# The QML on its own target: the code Qt generates from it is not held to
# our warning flags.
add_library(pictray_windows_qml STATIC)
target_link_libraries(pictray_windows_qml PUBLIC Qt6::Quick Qt6::Qml)
qt_add_qml_module(pictray_windows_qml
  URI Pictray.Windows
  VERSION 1.0
  NO_PLUGIN
  OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/qml/Pictray/Windows
  QML_FILES
    AboutView.qml
    AboutWindow.qml
    OnboardingWindow.qml
    PlaceholderPane.qml
    SettingsWindow.qml
    WindowColors.qml)

# The icon set's licence, shown by the about view.
set(tabler_licence ${PROJECT_SOURCE_DIR}/data/tabler-icons/LICENSE)
set_source_files_properties(${tabler_licence} PROPERTIES QT_RESOURCE_ALIAS tabler-icons-LICENSE)
qt_add_resources(pictray_windows_qml tabler_licence
  PREFIX "/Pictray/licences"
  FILES ${tabler_licence})
