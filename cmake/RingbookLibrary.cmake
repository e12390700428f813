# The library target: every .cpp of the subsystem folders except the tests.
set(RINGBOOK_SUBSYSTEMS core store fighters engine cards options schedule people)

set(_rb_globs)
foreach(dir IN LISTS RINGBOOK_SUBSYSTEMS)
  list(APPEND _rb_globs ${PROJECT_SOURCE_DIR}/${dir}/*.cpp)
endforeach()
file(GLOB RINGBOOK_SOURCES CONFIGURE_DEPENDS ${_rb_globs})
list(FILTER RINGBOOK_SOURCES EXCLUDE REGEX "_test\\.cpp$")

set(RINGBOOK_GENERATED ${PROJECT_BINARY_DIR}/generated)
configure_file(${PROJECT_SOURCE_DIR}/core/Version.h.in ${RINGBOOK_GENERATED}/core/Version.h @ONLY)

find_package(SQLite3 REQUIRED)

add_library(ringbook ${RINGBOOK_SOURCES})
add_library(ringbook::ringbook ALIAS ringbook)
target_compile_features(ringbook PUBLIC cxx_std_20)
set_target_properties(ringbook PROPERTIES
  CXX_EXTENSIONS OFF
  CXX_VISIBILITY_PRESET hidden
  VISIBILITY_INLINES_HIDDEN ON
  VERSION ${PROJECT_VERSION}
  SOVERSION ${PROJECT_VERSION_MAJOR}
  EXPORT_NAME ringbook)
if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  target_compile_options(ringbook PRIVATE -Wall -Wextra -Wpedantic)
endif()

include(GenerateExportHeader)
generate_export_header(ringbook EXPORT_FILE_NAME ${RINGBOOK_GENERATED}/core/Export.h
  EXPORT_MACRO_NAME RINGBOOK_EXPORT)
if(NOT BUILD_SHARED_LIBS)
  target_compile_definitions(ringbook PUBLIC RINGBOOK_STATIC_DEFINE)
endif()

# Headers include each other as "core/CStream.h"; consumers include the
# umbrella <ringbook/ringbook.h>.
target_include_directories(ringbook PUBLIC
  $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
  $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
  $<BUILD_INTERFACE:${RINGBOOK_GENERATED}>
  $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>
  $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/ringbook>)
target_link_libraries(ringbook PRIVATE SQLite::SQLite3)

# The default-data string table, generated from the files under data/.
include(${PROJECT_SOURCE_DIR}/cmake/RingbookData.cmake OPTIONAL)

# ---- install and package config ----
include(CMakePackageConfigHelpers)
install(TARGETS ringbook EXPORT ringbookTargets
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${PROJECT_SOURCE_DIR}/include/ringbook/ringbook.h
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ringbook)
foreach(dir IN LISTS RINGBOOK_SUBSYSTEMS)
  # Public headers only: private ones end in "_impl.h" and tests are not shipped.
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/${dir}/
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ringbook/${dir}
    FILES_MATCHING PATTERN "*.h"
    PATTERN "*_impl.h" EXCLUDE
    PATTERN "*_test*" EXCLUDE)
endforeach()
install(FILES ${RINGBOOK_GENERATED}/core/Version.h ${RINGBOOK_GENERATED}/core/Export.h
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ringbook/core)
install(EXPORT ringbookTargets NAMESPACE ringbook::
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/ringbook)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/ringbookConfig.cmake.in
  ${PROJECT_BINARY_DIR}/ringbookConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/ringbook)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/ringbookConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/ringbookConfig.cmake
  ${PROJECT_BINARY_DIR}/ringbookConfigVersion.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/ringbook)
