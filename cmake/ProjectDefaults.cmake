# What every target of this project shares: where its products go, how strict the compiler is, and
# which C++ it is in.

set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
set(ZORV_PLUGIN_INSTALL_DIR "lib/zorv/plugins")

set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
# Programs are linked so too, whatever the compiler's default is.
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)
# A framework of one's own is found where it was linked.
set(CMAKE_INSTALL_RPATH_USE_LINK_PATH ON)
set(CMAKE_INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}" ${QTILITIES_LIBRARY_DIR})

# A target of the folders that also build for the host's own Qt 4.8.
function(zorv_product_target target)
    set_target_properties(${target} PROPERTIES CXX_STANDARD 11 AUTOMOC ON AUTOUIC ON AUTORCC ON)
    zorv_warnings(${target})
endfunction()

option(ZORV_COVERAGE "Count which lines and branches of what runs in the host are reached" OFF)

# Has the lines and branches of a product target counted, for scripts/coverage.
function(zorv_counted_target target)
    if(ZORV_COVERAGE)
        target_compile_options(${target} PRIVATE --coverage)
        target_link_options(${target} PUBLIC --coverage)
    endif()
endfunction()

# A target that only ever builds on Qt 5.15 and 6.
function(zorv_target target)
    set_target_properties(${target} PROPERTIES CXX_STANDARD 17 AUTOMOC ON AUTOUIC ON AUTORCC ON)
    zorv_warnings(${target})
endfunction()

# One without signals, forms and resources: AUTOMOC would compile one more, empty file for it.
function(zorv_plain_target target)
    set_target_properties(${target} PROPERTIES CXX_STANDARD 17)
    zorv_warnings(${target})
endfunction()

function(zorv_warnings target)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow)
    # Qt 6 counts in 64 bits what tests keep as an int; with 5.15 they are checked.
    if(ZORV_QT LESS 6 OR NOT CMAKE_CURRENT_SOURCE_DIR MATCHES "^${PROJECT_SOURCE_DIR}/tests")
        target_compile_options(${target} PRIVATE -Wconversion)
    endif()
    # Files that are compiled together look to the compiler like headers, which may have no local types.
    if(CMAKE_UNITY_BUILD AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        target_compile_options(${target} PRIVATE -Wno-subobject-linkage)
    endif()
endfunction()

set(ZORV_TEST_ENVIRONMENT
    QT_QPA_PLATFORM=offscreen
    LC_ALL=C.UTF-8
    LANGUAGE=
    # Whole stacks, or leaks of Qt could not be distinguished from ours.
    ASAN_OPTIONS=fast_unwind_on_malloc=0
    "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/lsan-suppressions.txt")

# A program of the classes of TESTS, each with a file of its name that includes its moc file, and the
# further SOURCES, which need no moc. Each class is a test. It runs without a screen, in a locale that
# does not depend on the machine, and with settings of its own, also when started by hand. LAUNCHER
# starts it.
function(zorv_tests program)
    cmake_parse_arguments(arg "" "" "TESTS;SOURCES;LIBRARIES;LAUNCHER" ${ARGN})
    add_executable(${program} ${arg_SOURCES}
        $<TARGET_OBJECTS:own-environment> $<TARGET_OBJECTS:test-program>)
    zorv_plain_target(${program})
    target_include_directories(${program} PRIVATE "${CMAKE_CURRENT_BINARY_DIR}")
    # Widgets for all, so that the headers are the same ones.
    target_link_libraries(${program} PRIVATE ${QT_TEST} ${QT_WIDGETS} ${arg_LIBRARIES})
    # Qt 6 defines the folder of a test before its headers, which so are not the same in two folders.
    if(ZORV_QT EQUAL 5)
        target_precompile_headers(${program} REUSE_FROM test-headers)
    endif()

    foreach(test IN LISTS arg_TESTS)
        qt_generate_moc(${test}.cpp ${test}.moc TARGET ${program})
        target_sources(${program} PRIVATE ${test}.cpp "${CMAKE_CURRENT_BINARY_DIR}/${test}.moc")
        add_test(NAME ${test} COMMAND ${arg_LAUNCHER} "$<TARGET_FILE:${program}>" ${test})
        zorv_test_environment(${test})

        # Without a screen all leaks are ours, and short stacks are a tenth of the work.
        file(STRINGS ${test}.cpp without_screen REGEX "^ZORV_TEST\\(")
        if(without_screen)
            set_property(TEST ${test} APPEND PROPERTY ENVIRONMENT "ASAN_OPTIONS=")
        endif()
    endforeach()
endfunction()

# Runs a test without a screen, in a locale that does not depend on the machine, and with settings of
# its own.
function(zorv_test_environment name)
    set_tests_properties(${name} PROPERTIES TIMEOUT 900 ENVIRONMENT
        "${ZORV_TEST_ENVIRONMENT};XDG_CONFIG_HOME=${CMAKE_CURRENT_BINARY_DIR}/${name}-settings")
endfunction()

# For a test of windows with millions of allocations: to keep the whole stack of each takes a sanitizer hours.
function(zorv_without_leak_check name)
    set_property(TEST ${name} APPEND PROPERTY ENVIRONMENT "ASAN_OPTIONS=detect_leaks=0")
endfunction()
