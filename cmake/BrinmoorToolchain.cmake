# The language, the warnings and the sanitizers that every target shares.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

find_program(BRINMOOR_CCACHE ccache)
if(BRINMOOR_CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${BRINMOOR_CCACHE})
    set(CMAKE_C_COMPILER_LAUNCHER ${BRINMOOR_CCACHE})
endif()

add_library(brinmoor_options INTERFACE)
target_compile_options(brinmoor_options INTERFACE -Wall -Wextra -Wconversion -Wshadow)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # GCC 12 sees uninitialised reads inside std::variant where there are none.
    target_compile_options(brinmoor_options INTERFACE -Wno-maybe-uninitialized)
    # Where several sources are compiled at once, GCC takes them all for headers.
    if(CMAKE_UNITY_BUILD)
        target_compile_options(brinmoor_options INTERFACE -Wno-subobject-linkage)
    endif()
endif()
if(BRINMOOR_WERROR)
    target_compile_options(brinmoor_options INTERFACE -Werror)
endif()
target_compile_definitions(brinmoor_options INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CONTEXTLESS_CONNECT QT_NO_KEYWORDS)
target_include_directories(brinmoor_options INTERFACE ${CMAKE_SOURCE_DIR})

if(BRINMOOR_SANITIZE)
    add_compile_options(-fsanitize=${BRINMOOR_SANITIZE} -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${BRINMOOR_SANITIZE})
    if(BRINMOOR_SANITIZE MATCHES undefined AND CMAKE_CXX_COMPILER_ID STREQUAL GNU)
        # With GCC these take longer to compile than all the others and find least: the address
        # sanitizer stops at a null pointer too. The fuzzers, which Clang builds, check them.
        add_compile_options(-fno-sanitize=null,alignment,object-size,vptr)
    endif()
endif()
