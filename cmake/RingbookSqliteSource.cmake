# Windows builds compile SQLite in from its amalgamation, so the COM server
# carries it and imports only system DLLs. scripts/mingw-sqlite.sh makes the
# amalgamation from Debian's source package. The target stands in for the
# SQLite::SQLite3 that find_package(SQLite3) would import, so the library's
# own find_package call finds it.
set(RINGBOOK_SQLITE_SOURCE_DIR ${PROJECT_SOURCE_DIR}/build/cache/sqlite-amalgamation
    CACHE PATH "Folder holding sqlite3.c and sqlite3.h (made by scripts/mingw-sqlite.sh)")
if(NOT EXISTS ${RINGBOOK_SQLITE_SOURCE_DIR}/sqlite3.c)
  message(FATAL_ERROR "No SQLite amalgamation in ${RINGBOOK_SQLITE_SOURCE_DIR}: "
                      "run scripts/mingw-sqlite.sh first")
endif()

add_library(ringbook_sqlite3 STATIC ${RINGBOOK_SQLITE_SOURCE_DIR}/sqlite3.c)
target_include_directories(ringbook_sqlite3 SYSTEM PUBLIC
  $<BUILD_INTERFACE:${RINGBOOK_SQLITE_SOURCE_DIR}>)
# The options of Debian's own build that change behaviour, so the Windows
# library behaves as the Linux one does; extensions cannot be loaded.
target_compile_definitions(ringbook_sqlite3 PRIVATE
  SQLITE_THREADSAFE=1 SQLITE_SECURE_DELETE SQLITE_ENABLE_COLUMN_METADATA
  SQLITE_MAX_VARIABLE_NUMBER=250000 SQLITE_MAX_SCHEMA_RETRY=25 SQLITE_OMIT_LOAD_EXTENSION)
set_target_properties(ringbook_sqlite3 PROPERTIES POSITION_INDEPENDENT_CODE ON)
add_library(SQLite::SQLite3 ALIAS ringbook_sqlite3)
set(SQLite3_INCLUDE_DIR ${RINGBOOK_SQLITE_SOURCE_DIR} CACHE PATH "" FORCE)
set(SQLite3_LIBRARY ringbook_sqlite3 CACHE STRING "" FORCE)
# A static ringbook carries its SQLite dependency into its install package.
install(TARGETS ringbook_sqlite3 EXPORT ringbookTargets
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
