# One test program a room, and one test of CTest a suite: the suites are read off the sources.
file(GLOB support_sources CONFIGURE_DEPENDS tests/support/*.cpp)
list(FILTER support_sources EXCLUDE REGEX "_test[.]cpp$")
add_library(test_support STATIC ${support_sources})
target_link_libraries(test_support PUBLIC rooms gtest gmock)
# Only the two files that name a place are compiled for it, so that a compiler cache serves the rest
# in every checkout.
set_source_files_properties(tests/support/tess_program.cpp tests/dll/exports_test.cpp PROPERTIES
  COMPILE_DEFINITIONS "TEST_BIN=\"Z:${CMAKE_BINARY_DIR}/bin\";TEST_ROOT=\"Z:${CMAKE_SOURCE_DIR}\"")
set_target_properties(test_support PROPERTIES ARCHIVE_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})

function(add_room_tests room)
  file(GLOB sources CONFIGURE_DEPENDS tests/${room}/*_test.cpp)
  if(NOT sources)
    return()
  endif()
  set(program ${room}_tests)
  add_executable(${program} ${sources} resources/tessarine.rc)
  target_include_directories(${program} PRIVATE ${CMAKE_SOURCE_DIR}/resources)
  target_link_libraries(${program} PRIVATE test_support ${ARGN})
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${sources})
  set(suites)
  foreach(source IN LISTS sources)
    file(STRINGS ${source} lines REGEX "^TEST(_F|_P)?\\(")
    foreach(line IN LISTS lines)
      string(REGEX REPLACE "^TEST(_F|_P)?\\(([A-Za-z0-9_]+).*" "\\2" suite "${line}")
      list(APPEND suites ${suite})
    endforeach()
  endforeach()
  list(REMOVE_DUPLICATES suites)
  foreach(suite IN LISTS suites)
    add_test(NAME ${room}.${suite} COMMAND ${program} --gtest_brief=1
      --gtest_filter=${suite}.*:*/${suite}.*)
  endforeach()
endfunction()

foreach(room IN LISTS rooms)
  add_room_tests(${room})
endforeach()
add_room_tests(support)
add_room_tests(dll ${import_library})
if(TARGET dll_tests)
  file(GLOB c_hosts CONFIGURE_DEPENDS tests/dll/*.c)
  target_sources(dll_tests PRIVATE ${c_hosts})
  add_dependencies(dll_tests tessarine import_library)
endif()
add_test(NAME tools.CheckHouse
  COMMAND ${CMAKE_SOURCE_DIR}/tests/tools/check_house.sh ${CMAKE_SOURCE_DIR})
add_test(NAME tools.Mutate COMMAND ${CMAKE_SOURCE_DIR}/tests/tools/mutate.sh ${CMAKE_SOURCE_DIR})
add_test(NAME tools.PrintedPages
  COMMAND ${CMAKE_SOURCE_DIR}/tests/tools/printed_pages.sh $<TARGET_FILE:output_tests>
          ${CMAKE_SOURCE_DIR})
if(TARGET host)
  add_room_tests(host host ${import_library})
  if(TARGET host_tests)
    target_sources(host_tests PRIVATE host/tess.rc)
    add_dependencies(host_tests tess)
  endif()
  add_test(NAME tools.FullDisk
    COMMAND ${CMAKE_SOURCE_DIR}/tests/tools/full_disk.sh $<TARGET_FILE:tess> ${CMAKE_SOURCE_DIR})
  add_test(NAME tools.IndependentReader
    COMMAND ${CMAKE_SOURCE_DIR}/tests/tools/independent_reader.sh $<TARGET_FILE:tess>
            ${CMAKE_SOURCE_DIR})
  add_test(NAME tools.FormsPage
    COMMAND ${CMAKE_SOURCE_DIR}/tests/tools/forms_page.sh $<TARGET_FILE:tess> ${CMAKE_SOURCE_DIR})
  add_test(NAME tools.ReadmeHost
    COMMAND ${CMAKE_SOURCE_DIR}/tests/tools/readme_host.sh $<TARGET_FILE:tess> ${CMAKE_SOURCE_DIR})
  add_test(NAME tools.RunToPrinter
    COMMAND ${CMAKE_SOURCE_DIR}/tests/tools/run_to_printer.sh $<TARGET_FILE:tess>
            ${CMAKE_SOURCE_DIR})
  add_test(NAME tools.PdfText
    COMMAND ${CMAKE_SOURCE_DIR}/tests/tools/pdf_text.sh $<TARGET_FILE:tess> ${CMAKE_SOURCE_DIR})
endif()
