set(platform_sources
  Platform/DesktopFileViewer.cpp
  Platform/FilePanels.cpp
  Platform/ItemPanel.cpp
  Platform/PanelPlaces.cpp)
