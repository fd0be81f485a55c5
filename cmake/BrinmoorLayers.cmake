# One library a layer. A layer's include path is the source root, and what it may link is what it
# names here: a header of a layer that is not linked still compiles only if it needs no library,
# so brinmoor_layer() also records the layers that a source may include, and tests/layers checks it.

# brinmoor_layer(<target> SOURCES ... LINKS ... MAY_INCLUDE <folders of this tree>)
function(brinmoor_layer target)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS;PRIVATE_LINKS;MAY_INCLUDE" ${ARGN})
    add_library(${target} STATIC ${ARG_SOURCES})
    target_link_libraries(${target} PUBLIC brinmoor_options ${ARG_LINKS}
                                    PRIVATE ${ARG_PRIVATE_LINKS})
    brinmoor_may_include(${ARG_MAY_INCLUDE})
endfunction()

# brinmoor_may_include(<folders>): what the sources of the present folder may include.
function(brinmoor_may_include)
    file(RELATIVE_PATH folder ${CMAKE_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR})
    string(REPLACE ";" " " allowed "${ARGN}")
    set_property(GLOBAL APPEND PROPERTY BRINMOOR_LAYER_RULES "${folder}: ${allowed}")
endfunction()
