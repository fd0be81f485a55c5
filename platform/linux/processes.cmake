# Kept apart from the rest of the folder: the browser's helper program links it, and has no Qt.
add_library(BrinmoorBrowserProcesses STATIC
    ${CMAKE_CURRENT_LIST_DIR}/BrowserProcesses.cpp
    ${CMAKE_CURRENT_LIST_DIR}/BrowserProcesses.h)
target_link_libraries(BrinmoorBrowserProcesses PUBLIC brinmoor_options)
target_compile_options(BrinmoorBrowserProcesses PRIVATE -O2)
