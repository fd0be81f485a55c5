# What a copy of the program knows of how it was built.

set(BRINMOOR_BUILD_NUMBER "" CACHE STRING
    "The build's number; empty for a copy that was built for its own developer")
option(BRINMOOR_UPDATES_ENABLED "This is the release, which may look for updates" OFF)

# Linked by whatever puts the program together; nothing else knows these.
add_library(brinmoor_build_settings INTERFACE)
target_compile_definitions(brinmoor_build_settings INTERFACE
    BRINMOOR_VERSION="${PROJECT_VERSION}"
    BRINMOOR_BUILD_NUMBER="${BRINMOOR_BUILD_NUMBER}"
    BRINMOOR_UPDATES_ENABLED=$<BOOL:${BRINMOOR_UPDATES_ENABLED}>)
