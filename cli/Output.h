#pragma once

// How the tool prints: aligned tables for people, tab-separated lines for
// scripts, JSON for programs, and a progress bar on a terminal.
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "cli/Fields.h"

namespace ringbook::cli {

enum class OutputFormat {
  Table,  // aligned columns under a header
  Tsv,    // a header line, then one line per row, cells separated by tabs
  Json,   // one JSON document
};

/// Rows of cells under named columns. Numbers are right-aligned in a table.
struct Table {
  std::vector<std::string> columns;
  std::vector<std::vector<Json>> rows;
};

/// Prints `table` to standard output in `format`; as JSON it is an array
/// of objects keyed by the column names.
void PrintTable(const Table& table, OutputFormat format);

/// Prints one record's fields: "Name  value" lines (Table), "Name<TAB>value"
/// lines (Tsv) or the object itself (Json). Nested values print as compact
/// JSON in the first two forms.
void PrintObject(const Json& object, OutputFormat format);

/// Prints `value` as indented JSON and a line end.
void PrintJson(const Json& value);

/// Aligned text of `table` (the Table form), for composing larger views.
std::string TableText(const Table& table);

/// The JSON document in file `path` ("-" for standard input); fails with a
/// message naming the file when it cannot be read or is not JSON.
Json ReadJsonFile(const std::string& path);

/// Writes `text` to file `path`, or to standard output when `path` is empty
/// or "-"; fails with a message naming the file.
void WriteTextFile(const std::string& path, const std::string& text);

/// Whether `stream` is a terminal.
bool IsTerminal(std::FILE* stream);

/// A one-line progress bar on standard error, drawn only when standard
/// error is a terminal; otherwise it prints nothing at all.
class ProgressBar {
 public:
  explicit ProgressBar(std::string label);
  ~ProgressBar();
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;

  /// Redraws the bar at `done` of `total` (at most every whole percent).
  void Update(int64_t done, int64_t total);
  /// Clears the bar's line.
  void Finish();

 private:
  std::string label_;
  bool enabled_;
  bool drawn_ = false;
  int last_percent_ = -1;
};

}  // namespace ringbook::cli
