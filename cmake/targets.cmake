# The kinds of target that the folders are made of. A folder's CMakeLists.txt is one call of these.

# The folders of src/, lowest level first. A folder may link only to what stands before it.
set(FOLDERS
    foundation platform temporal units names records tables model trees translation toolkit
    operations runs editing app command_line desktop_qt file_transfer_curl maps_shapelib table_csv gallery main)

# suite_library(NAME SOURCES file... [DEPENDS library...] [LINKS library...])
# The library of one folder of src/. DEPENDS names libraries of this project, LINKS outside ones.
function(suite_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS;LINKS" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC ${ARG_DEPENDS} ${ARG_LINKS})
endfunction()

# suite_program(NAME SUFFIX suffix SOURCES file... DEPENDS library...)
# A program that users start.
function(suite_program name)
  cmake_parse_arguments(ARG "" "SUFFIX" "SOURCES;DEPENDS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  set_target_properties(${name} PROPERTIES SUFFIX "${ARG_SUFFIX}")
  target_link_libraries(${name} PRIVATE ${ARG_DEPENDS})
endfunction()

# suite_tests(NAME SOURCES file... DEPENDS library...)
# The test program of one folder, run by CTest as NAME. TEST_DATA names tests/data for its tests.
function(suite_tests name)
  cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/src ${CMAKE_SOURCE_DIR}/tests)
  target_compile_definitions(${name} PRIVATE TEST_DATA="${CMAKE_SOURCE_DIR}/tests/data")
  target_link_libraries(${name} PRIVATE ${ARG_DEPENDS} GTest::gtest_main)
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES TIMEOUT 300)
endfunction()

# suite_benchmark(NAME SOURCES file... DEPENDS library...)
function(suite_benchmark name)
  cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/src ${CMAKE_SOURCE_DIR}/benchmarks)
  target_link_libraries(${name} PRIVATE ${ARG_DEPENDS} benchmark::benchmark)
endfunction()

# Adds the sub-folders that exist, in the order of FOLDERS.
macro(add_folders)
  foreach(folder IN LISTS FOLDERS)
    if(EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/CMakeLists.txt)
      add_subdirectory(${folder})
    endif()
  endforeach()
endmacro()
