# What every target of the tree has in common, and the helpers that add one.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
# The package and the host share types across their border; only what is exported by name may cross it.
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
# All binaries lie side by side, so the host finds its package and the tests find both.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual)
if(VIRELLE_WERROR)
  add_compile_options(-Werror)
endif()
if(VIRELLE_SANITIZE)
  add_compile_options(-fsanitize=${VIRELLE_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${VIRELLE_SANITIZE})
endif()

# virelle_library(NAME [QT] [TYPE STATIC|SHARED|MODULE] SOURCES file... [DEPS target...])
# Adds a library whose include root is src/. QT brings Qt Widgets, moc and the shared precompiled header.
function(virelle_library name)
  cmake_parse_arguments(ARG "QT" "TYPE" "SOURCES;DEPS" ${ARGN})
  if(NOT ARG_TYPE)
    set(ARG_TYPE STATIC)
  endif()
  add_library(${name} ${ARG_TYPE} ${ARG_SOURCES})
  target_include_directories(${name} PUBLIC "${PROJECT_SOURCE_DIR}/src")
  target_link_libraries(${name} PUBLIC ${ARG_DEPS})
  if(ARG_QT)
    virelle_use_qt(${name})
  endif()
endfunction()

# virelle_optimize_together(TARGET...)
# Lets the compiler see several libraries as one where users get them, if it can. The parser calls its productions and
# the lexer through thousands of short virtual calls; seen whole, most of them become direct ones.
function(virelle_optimize_together)
  include(CheckIPOSupported)
  check_ipo_supported(RESULT supported OUTPUT ignored LANGUAGES CXX)
  if(supported)
    set_target_properties(${ARGN} PROPERTIES INTERPROCEDURAL_OPTIMIZATION_RELEASE ON)
  endif()
endfunction()

# virelle_executable(NAME [QT] SOURCES file... [DEPS target...])
function(virelle_executable name)
  cmake_parse_arguments(ARG "QT" "" "SOURCES;DEPS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/src")
  target_link_libraries(${name} PRIVATE ${ARG_DEPS})
  if(ARG_QT)
    virelle_use_qt(${name})
  endif()
endfunction()

# Qt Widgets for one target. Its headers are compiled once for the whole tree, by the target qt_precompiled.
function(virelle_use_qt name)
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_compile_definitions(${name} PRIVATE QT_NO_CAST_FROM_ASCII QT_NO_KEYWORDS QT_NO_FOREACH)
  target_link_libraries(${name} PUBLIC Qt6::Widgets)
  if(NOT name STREQUAL "qt_precompiled")
    target_precompile_headers(${name} REUSE_FROM qt_precompiled)
  endif()
endfunction()

# Adds the target that compiles Qt's headers; it holds nothing else.
function(virelle_precompile_qt)
  file(GENERATE OUTPUT "${CMAKE_BINARY_DIR}/QtPrecompiled.cpp" CONTENT "// Compiles cmake/QtPrecompiled.h.\n")
  add_library(qt_precompiled OBJECT "${CMAKE_BINARY_DIR}/QtPrecompiled.cpp")
  virelle_use_qt(qt_precompiled)
  target_precompile_headers(qt_precompiled PRIVATE
    "$<$<COMPILE_LANGUAGE:CXX>:${PROJECT_SOURCE_DIR}/cmake/QtPrecompiled.h>")
endfunction()

# virelle_test(NAME [QT] LABEL pure|gui SOURCES file... [DEPS target...] [ENVIRONMENT VAR=value...])
# Adds one test program; ctest sees each of its cases. "pure" tests need neither Qt nor a display.
function(virelle_test name)
  cmake_parse_arguments(ARG "QT" "LABEL" "SOURCES;DEPS;ENVIRONMENT" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/src" "${PROJECT_SOURCE_DIR}/tests")
  target_compile_definitions(${name} PRIVATE VIRELLE_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/data")
  if(ARG_QT)
    virelle_use_qt(${name})
    target_link_libraries(${name} PRIVATE ${ARG_DEPS} GTest::gtest)
  else()
    target_link_libraries(${name} PRIVATE ${ARG_DEPS} GTest::gtest GTest::gtest_main)
  endif()
  set(environment ${ARG_ENVIRONMENT} QT_QPA_PLATFORM=offscreen)
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 NO_PRETTY_VALUES
    PROPERTIES LABELS ${ARG_LABEL} TIMEOUT 600 ENVIRONMENT "${environment}")
  add_dependencies(${ARG_LABEL}_tests ${name})
endfunction()
