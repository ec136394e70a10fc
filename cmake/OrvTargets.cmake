# SPDX-License-Identifier: GPL-3.0-or-later
# One interface target carries the language standard, the warnings and Qt's strictness for everything that is built.
add_library(orv_options INTERFACE)
target_compile_features(orv_options INTERFACE cxx_std_20)
target_include_directories(orv_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_compile_definitions(orv_options INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_URL_CAST_FROM_STRING
    QT_NO_FOREACH QT_NO_KEYWORDS QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_DISABLE_DEPRECATED_BEFORE=0x060400)
if(MSVC)
    target_compile_options(orv_options INTERFACE /W4 /permissive- /utf-8 /fp:precise)
else()
    # Contraction into fused operations would make times of day differ between processors.
    target_compile_options(orv_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
        -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast -Wcast-align -ffp-contract=off)
endif()
if(ORV_WARNINGS_AS_ERRORS)
    target_compile_options(orv_options INTERFACE $<IF:$<CXX_COMPILER_ID:MSVC>,/WX,-Werror>)
endif()
if(ORV_SANITIZE)
    target_compile_options(orv_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
        -fno-omit-frame-pointer)
    target_link_options(orv_options INTERFACE -fsanitize=address,undefined)
endif()

# orv_add_library(NAME SOURCES file... LINK target...)
# A layer of the program. LINK names the layers below it: what is not named cannot be linked.
function(orv_add_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_link_libraries(${name} PUBLIC orv_options ${ARG_LINK})
endfunction()

# orv_add_tests(NAME [PSEUDO_TERMINALS] SOURCES file... LINK target...)
# One test program; each of its tests is a ctest test. Tests run without a display. Those marked PSEUDO_TERMINALS open
# pseudo-terminals and run one at a time: the number of one that is gone is given to the next who asks, so two tests at
# once could meet on one device.
function(orv_add_tests name)
    if(NOT ORV_BUILD_TESTS)
        return()
    endif()
    cmake_parse_arguments(ARG "PSEUDO_TERMINALS" "" "SOURCES;LINK" ${ARGN})
    set(lock "")
    if(ARG_PSEUDO_TERMINALS)
        set(lock RESOURCE_LOCK pseudo_terminals)
    endif()
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE orv_options ${ARG_LINK} GTest::gmock)
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60
        PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen" TIMEOUT 120 ${lock})
endfunction()
