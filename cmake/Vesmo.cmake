# Build rules shared by every library, program and test of Vesmo.

# Results must not depend on the compiler fusing multiplications and additions.
add_compile_options(-ffp-contract=off)

if(VESMO_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-omit-frame-pointer
                        -fno-sanitize-recover=undefined)
    add_link_options(-fsanitize=address,undefined)
endif()

# Warnings are errors in our own code (third-party headers come in as system includes).
function(vesmo_warnings target)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Werror)
    # g++ 12 reports false overlaps in inlined std::string concatenation at -O3 (GCC bug 105329).
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
        target_compile_options(${target} PRIVATE -Wno-restrict)
    endif()
endfunction()

# vesmo_library(name SOURCES ... [DEPENDS ...]): one subsystem library.
function(vesmo_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC ${ARG_DEPENDS})
    vesmo_warnings(${name})
endfunction()

# vesmo_test(name SOURCES ... [DEPENDS ...]): one GoogleTest program registered with CTest.
# VESMO_DATI_TEST points the test at tests/data.
function(vesmo_test name)
    cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE ${ARG_DEPENDS} GTest::gtest GTest::gtest_main)
    target_compile_definitions(${name} PRIVATE
                               VESMO_DATI_TEST="${PROJECT_SOURCE_DIR}/tests/data")
    vesmo_warnings(${name})
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60)
endfunction()

# vesmo_test_qt(name SOURCES ... [DEPENDS ...]): a test of windows, run on the offscreen platform
# with a QApplication made by tests/QtMain.cpp.
function(vesmo_test_qt name)
    cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES} ${PROJECT_SOURCE_DIR}/tests/QtMain.cpp)
    target_link_libraries(${name} PRIVATE ${ARG_DEPENDS} Qt6::Widgets Qt6::Test GTest::gtest)
    target_compile_definitions(${name} PRIVATE
                               VESMO_DATI_TEST="${PROJECT_SOURCE_DIR}/tests/data")
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    vesmo_warnings(${name})
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60
                         PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
endfunction()
