# The default-data string table: scripts/gen_string_table.py checks the files
# under data/ and writes the table as a C++ source of the library and as a
# resource script (STRINGTABLE) for the COM server. Both are rebuilt when a
# data file or the generator changes; a fault in the data fails the build with
# the file and line.
find_package(Python3 REQUIRED COMPONENTS Interpreter)

set(RINGBOOK_DATA_DIR ${PROJECT_SOURCE_DIR}/data)
set(RINGBOOK_DATA_GENERATOR ${PROJECT_SOURCE_DIR}/scripts/gen_string_table.py)
set(RINGBOOK_DATA_FILES
  ${RINGBOOK_DATA_DIR}/cities.tsv
  ${RINGBOOK_DATA_DIR}/announcers.tsv
  ${RINGBOOK_DATA_DIR}/judges.tsv
  ${RINGBOOK_DATA_DIR}/referees.tsv
  ${RINGBOOK_DATA_DIR}/cornermen.tsv
  ${RINGBOOK_DATA_DIR}/locations.tsv)
set(RINGBOOK_DATA_CPP ${RINGBOOK_GENERATED}/store/DefaultDataTable.cpp)
# The COM server adds this to its own sources.
set(RINGBOOK_DATA_RC ${RINGBOOK_GENERATED}/store/DefaultData.rc)

add_custom_command(
  OUTPUT ${RINGBOOK_DATA_CPP} ${RINGBOOK_DATA_RC}
  COMMAND ${Python3_EXECUTABLE} ${RINGBOOK_DATA_GENERATOR}
          --data ${RINGBOOK_DATA_DIR} --cpp ${RINGBOOK_DATA_CPP} --rc ${RINGBOOK_DATA_RC}
  DEPENDS ${RINGBOOK_DATA_GENERATOR} ${RINGBOOK_DATA_FILES}
  WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
  COMMENT "Generating the default-data string table"
  VERBATIM)
target_sources(ringbook PRIVATE ${RINGBOOK_DATA_CPP})

if(RINGBOOK_BUILD_TESTS)
  add_test(NAME default_data_generator
    COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/tests/data/test_generator.py)
  set_tests_properties(default_data_generator PROPERTIES
    ENVIRONMENT "RINGBOOK_SOURCE_DIR=${PROJECT_SOURCE_DIR}")
endif()
