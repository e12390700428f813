#pragma once

#include <string>

namespace ringbook::test {

/// Runs `sql` (one or more statements) straight on the database file at
/// `path`, outside the library: for preparing rows the library would never
/// write (NULLs in number columns, a newer layout version, ...). Fails the
/// calling test on an engine error.
void ExecSql(const std::string& path, const std::string& sql);

/// The first column of the first row of `sql` as text ("" for NULL or no
/// row), read straight from the file.
std::string QuerySql(const std::string& path, const std::string& sql);

}  // namespace ringbook::test
