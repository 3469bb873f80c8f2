# Qt's private headers. They hand a host's own array of points to Qt's paint engine, and show the state of a font's
# faces, which cached outlines depend on. Nothing outside txpluginqt/raster includes them.
find_package(Qt5 5.15 REQUIRED COMPONENTS Core Gui)

add_library(tx_qt5_private INTERFACE)
target_include_directories(tx_qt5_private SYSTEM INTERFACE ${Qt5Gui_PRIVATE_INCLUDE_DIRS})
target_link_libraries(tx_qt5_private INTERFACE Qt5::Core Qt5::Gui)
