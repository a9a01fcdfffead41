# The fuzzer drives the library's own module, and for expressions its rooms.
file(GLOB fuzz_sources CONFIGURE_DEPENDS fuzz/*.cpp)
add_executable(fuzz ${fuzz_sources} resources/tessarine.rc)
target_include_directories(fuzz PRIVATE ${CMAKE_SOURCE_DIR}/resources)
target_link_libraries(fuzz PRIVATE test_support host ${import_library})
add_dependencies(fuzz tessarine import_library)
add_test(NAME tools.ReplayedInputs
  COMMAND ${CMAKE_SOURCE_DIR}/tests/tools/replayed_inputs.sh $<TARGET_FILE:fuzz>
          ${CMAKE_SOURCE_DIR})
