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
    target_compile_options(orv_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion
        -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast -Wcast-align -ffp-contract=off)
    # The rig's members are called "rows", "line", "state", as a test's own rows, lines and states are.
    target_compile_options(orv_options INTERFACE $<$<NOT:$<BOOL:$<TARGET_PROPERTY:ORV_TEST>>>:-Wshadow>)
    # In joined units g++ 12 takes what stands in a coroutine for a part of a header's class.
    target_compile_options(orv_options INTERFACE
        $<$<AND:$<CXX_COMPILER_ID:GNU>,$<BOOL:$<TARGET_PROPERTY:UNITY_BUILD>>>:-Wno-subobject-linkage>)
endif()
if(ORV_WARNINGS_AS_ERRORS)
    target_compile_options(orv_options INTERFACE $<IF:$<CXX_COMPILER_ID:MSVC>,/WX,-Werror>)
endif()
if(ORV_SANITIZE)
    target_compile_options(orv_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
        -fno-omit-frame-pointer)
    target_link_options(orv_options INTERFACE -fsanitize=address,undefined)
endif()
if(ORV_FUZZ)
    # Of coroutines clang makes functions with which the sanitizer of function types cannot be linked.
    target_compile_options(orv_options INTERFACE -fsanitize=fuzzer-no-link -fno-sanitize=function
                           -fsanitize-coverage-ignorelist=${CMAKE_CURRENT_LIST_DIR}/fuzz-ignored.txt)
endif()

# What nearly every file of a floor includes is parsed once a floor: below the windows, and for the windows.
set(ORV_CORE_HEADERS <QByteArray> <QDateTime> <QDir> <QFile> <QFileInfo> <QHash> <QList> <QObject> <QPointer> <QProperty>
    <QSaveFile> <QString> <QStringList> <QTimer> <algorithm> <array> <functional> <map> <memory> <optional> <utility>
    <vector>)
set(ORV_WINDOW_HEADERS ${ORV_CORE_HEADERS} <QApplication> <QtWidgets>)
set(ORV_TEST_HEADERS <gmock/gmock.h> <gtest/gtest.h> <deque>)

# orv_add_library(NAME [WINDOWS] SOURCES file... LINK target...)
# A folder of the program; its library may use what LINK names and nothing else. WINDOWS: it draws.
function(orv_add_library name)
    cmake_parse_arguments(ARG "WINDOWS" "" "SOURCES;LINK" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_link_libraries(${name} PUBLIC orv_options ${ARG_LINK})
    orv_precompile(${name} orv_base ORV_CORE_HEADERS orv_ui ORV_WINDOW_HEADERS "${ARG_WINDOWS}")
endfunction()

# orv_precompile(TARGET CORE-MAKER CORE-HEADERS WINDOW-MAKER WINDOW-HEADERS WINDOWS)
# The first target of a floor makes its precompiled header, the others take it.
function(orv_precompile target core core_headers window window_headers windows)
    set(maker ${core})
    set(headers ${core_headers})
    if(windows)
        set(maker ${window})
        set(headers ${window_headers})
    endif()
    if(target STREQUAL maker)
        target_precompile_headers(${target} PRIVATE ${${headers}})
    else()
        target_precompile_headers(${target} REUSE_FROM ${maker})
    endif()
endfunction()

# orv_add_test_program(NAME [WINDOWS] [PSEUDO_TERMINALS] [LINK target...] [PROGRAMS target...])
# A test program, to which folders add; each of its tests is a ctest test. Tests run without a display. Those marked
# PSEUDO_TERMINALS open pseudo-terminals and run one at a time: the number of one that is gone is given to the next who
# asks, so two tests at once could meet on one device. PROGRAMS are built first and their paths defined, ORVSIM_PATH for
# orvsim.
function(orv_add_test_program name)
    cmake_parse_arguments(ARG "WINDOWS;PSEUDO_TERMINALS" "" "LINK;PROGRAMS" ${ARGN})
    set(lock "")
    if(ARG_PSEUDO_TERMINALS)
        set(lock RESOURCE_LOCK pseudo_terminals)
    endif()
    add_executable(${name} ${PROJECT_SOURCE_DIR}/src/testing/main.cpp)
    target_link_libraries(${name} PRIVATE orv_testing ${ARG_LINK})
    orv_test_options(${name})
    orv_precompile(${name} orv_testing ORV_CORE_TEST_HEADERS orv_ui_tests ORV_WINDOW_TEST_HEADERS "${ARG_WINDOWS}")
    foreach(program IN LISTS ARG_PROGRAMS)
        string(TOUPPER ${program} upper)
        target_compile_definitions(${name} PRIVATE "${upper}_PATH=\"$<TARGET_FILE:${program}>\"")
        add_dependencies(${name} ${program})
    endforeach()
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60
        PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen" TIMEOUT 300 ${lock})
endfunction()

# orv_add_tests(PROGRAM file...)
# Tests of this folder's units, for one of the test programs.
function(orv_add_tests program)
    if(TARGET ${program})
        target_sources(${program} PRIVATE ${ARGN})
    endif()
endfunction()
set(ORV_CORE_TEST_HEADERS ${ORV_CORE_HEADERS} ${ORV_TEST_HEADERS})
set(ORV_WINDOW_TEST_HEADERS ${ORV_WINDOW_HEADERS} ${ORV_TEST_HEADERS})

# Tests are compiled without optimisation, which takes most of their time and shows nothing; and each file by itself,
# because their fixtures have short names.
function(orv_test_options target)
    set_target_properties(${target} PROPERTIES UNITY_BUILD OFF ORV_TEST ON)
    if(NOT MSVC AND NOT ORV_SANITIZE AND NOT ORV_FUZZ)
        target_compile_options(${target} PRIVATE -O0 -g1)
    endif()
endfunction()
