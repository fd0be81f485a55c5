# brinmoor_test(<name> SOURCES ... LINKS ... [DESKTOP] [APART] [TIMEOUT seconds] [LABEL label])
#
# A GoogleTest program, one ctest entry a test case; one for the whole program where
# BRINMOOR_TEST_CASES is off. DESKTOP runs it inside a virtual display with a window manager and a
# private D-Bus session, always as one entry. The LABEL says in which builds it runs: "logic",
# unless given, under the sanitizers. APART: its sources have names in common, and are compiled one
# by one in every build.

find_package(GTest REQUIRED)
include(GoogleTest)

# Every test program that needs no display, for the builds that run only those.
add_custom_target(logic-tests)

function(brinmoor_test name)
    cmake_parse_arguments(ARG "DESKTOP;APART" "TIMEOUT;LABEL" "SOURCES;LINKS" ${ARGN})
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 120)
    endif()
    if(NOT ARG_LABEL)
        set(ARG_LABEL logic)
    endif()
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE brinmoor_options ${ARG_LINKS} GTest::gmock)
    # Most of the time that a test takes to compile is these headers and their optimisation.
    target_compile_options(${name} PRIVATE -O0)
    if(BRINMOOR_SANITIZE MATCHES undefined)
        # What is tested is checked; in a test itself it would double the time to compile.
        target_compile_options(${name} PRIVATE -fno-sanitize=undefined)
    endif()
    if(ARG_APART)
        set_target_properties(${name} PROPERTIES UNITY_BUILD OFF)
    endif()
    list(LENGTH ARG_SOURCES sources)
    if(sources GREATER 3)
        target_precompile_headers(${name} PRIVATE <gmock/gmock.h>)
    endif()
    if(ARG_DESKTOP)
        target_link_libraries(${name} PRIVATE GTest::gtest)
        add_test(NAME ${name} COMMAND ${CMAKE_SOURCE_DIR}/scripts/in-desktop $<TARGET_FILE:${name}>)
        set_tests_properties(${name} PROPERTIES
            TIMEOUT ${ARG_TIMEOUT} LABELS desktop RUN_SERIAL ON)
    else()
        target_link_libraries(${name} PRIVATE GTest::gtest_main)
        add_dependencies(logic-tests ${name})
        if(ARG_LABEL STREQUAL "logic" AND NOT BRINMOOR_LOGIC_TESTS)
            set_target_properties(${name} PROPERTIES EXCLUDE_FROM_ALL ON)
        endif()
        if(BRINMOOR_TEST_CASES)
            gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT ${ARG_TIMEOUT}
                LABELS ${ARG_LABEL})
        else()
            add_test(NAME ${name} COMMAND ${name})
            set_tests_properties(${name} PROPERTIES TIMEOUT 900 LABELS ${ARG_LABEL})
        endif()
    endif()
endfunction()
