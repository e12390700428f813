#include "cli/Output.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "cli/Errors.h"
#include "core/Text.h"

#ifdef _WIN32
#include <io.h>
#define RB_ISATTY _isatty
#define RB_FILENO _fileno
#else
#include <unistd.h>
#define RB_ISATTY isatty
#define RB_FILENO fileno
#endif

namespace ringbook::cli {
namespace {

// A cell on one line: tabs and line ends would break both forms.
std::string OneLine(std::string text) {
  for (char& c : text) {
    if (c == '\t' || c == '\n' || c == '\r') c = ' ';
  }
  return text;
}

std::string Cell(const Json& value) {
  if (value.is_object() || value.is_array()) return value.dump();
  return OneLine(CellText(value));
}

std::size_t Width(const std::string& text) {
  return text::CharCount(text);
}

std::string Pad(const std::string& text, std::size_t width, bool right) {
  const std::size_t w = Width(text);
  if (w >= width) return text;
  const std::string fill(width - w, ' ');
  return right ? fill + text : text + fill;
}

}  // namespace

std::string TableText(const Table& table) {
  const std::size_t n = table.columns.size();
  std::vector<std::size_t> widths(n);
  std::vector<bool> numeric(n, true);
  for (std::size_t c = 0; c < n; ++c) widths[c] = Width(table.columns[c]);
  std::vector<std::vector<std::string>> cells;
  for (const auto& row : table.rows) {
    std::vector<std::string> line;
    for (std::size_t c = 0; c < n; ++c) {
      const Json& v = c < row.size() ? row[c] : Json();
      line.push_back(Cell(v));
      widths[c] = std::max(widths[c], Width(line.back()));
      if (!v.is_number() && !v.is_null()) numeric[c] = false;
    }
    cells.push_back(std::move(line));
  }
  std::string out;
  auto emit = [&](const std::vector<std::string>& line) {
    std::string text;
    for (std::size_t c = 0; c < n; ++c) {
      if (c > 0) text += "  ";
      text += Pad(line[c], widths[c], numeric[c]);
    }
    while (!text.empty() && text.back() == ' ') text.pop_back();
    out += text + "\n";
  };
  emit(table.columns);
  for (const auto& line : cells) emit(line);
  return out;
}

void PrintTable(const Table& table, OutputFormat format) {
  switch (format) {
    case OutputFormat::Json: {
      Json rows = Json::array();
      for (const auto& row : table.rows) {
        Json obj = Json::object();
        for (std::size_t c = 0; c < table.columns.size(); ++c) {
          obj[table.columns[c]] = c < row.size() ? row[c] : Json();
        }
        rows.push_back(std::move(obj));
      }
      PrintJson(rows);
      return;
    }
    case OutputFormat::Tsv: {
      std::string out;
      for (std::size_t c = 0; c < table.columns.size(); ++c) {
        out += (c ? "\t" : "") + table.columns[c];
      }
      out += "\n";
      for (const auto& row : table.rows) {
        for (std::size_t c = 0; c < table.columns.size(); ++c) {
          out += (c ? "\t" : "") + (c < row.size() ? Cell(row[c]) : std::string());
        }
        out += "\n";
      }
      std::cout << out;
      return;
    }
    case OutputFormat::Table:
      std::cout << TableText(table);
      return;
  }
}

void PrintObject(const Json& object, OutputFormat format) {
  if (format == OutputFormat::Json) {
    PrintJson(object);
    return;
  }
  std::size_t width = 0;
  for (const auto& [name, value] : object.items()) width = std::max(width, Width(name));
  std::string out;
  for (const auto& [name, value] : object.items()) {
    if (format == OutputFormat::Tsv) {
      out += name + "\t" + Cell(value) + "\n";
    } else {
      out += Pad(name, width, false) + "  " + Cell(value) + "\n";
    }
  }
  std::cout << out;
}

void PrintJson(const Json& value) {
  std::cout << value.dump(2, ' ', false, Json::error_handler_t::replace) << "\n";
}

Json ReadJsonFile(const std::string& path) {
  std::ifstream file;
  std::istream* in = &std::cin;
  if (path != "-") {
    file.open(std::filesystem::path(path), std::ios::binary);
    if (!file) throw CommandError("cannot read '" + path + "'");
    in = &file;
  }
  try {
    return Json::parse(*in);
  } catch (const Json::parse_error& e) {
    throw CommandError("'" + path + "' is not valid JSON: " + e.what());
  }
}

void WriteTextFile(const std::string& path, const std::string& text) {
  if (path.empty() || path == "-") {
    std::cout << text;
    return;
  }
  std::ofstream file(std::filesystem::path(path), std::ios::binary | std::ios::trunc);
  file << text;
  file.close();
  if (!file) throw CommandError("cannot write '" + path + "'");
}

bool IsTerminal(std::FILE* stream) {
  return RB_ISATTY(RB_FILENO(stream)) != 0;
}

ProgressBar::ProgressBar(std::string label)
    : label_(std::move(label)), enabled_(IsTerminal(stderr)) {}

ProgressBar::~ProgressBar() {
  Finish();
}

void ProgressBar::Update(int64_t done, int64_t total) {
  if (!enabled_ || total <= 0) return;
  const int percent = static_cast<int>(std::clamp<int64_t>(done * 100 / total, 0, 100));
  if (percent == last_percent_) return;
  last_percent_ = percent;
  constexpr int kCells = 30;
  const int filled = percent * kCells / 100;
  std::fprintf(stderr, "\r%s [%s%s] %3d%% (%lld/%lld)", label_.c_str(),
               std::string(static_cast<std::size_t>(filled), '#').c_str(),
               std::string(static_cast<std::size_t>(kCells - filled), '.').c_str(), percent,
               static_cast<long long>(done), static_cast<long long>(total));
  std::fflush(stderr);
  drawn_ = true;
}

void ProgressBar::Finish() {
  if (!drawn_) return;
  std::fprintf(stderr, "\r\033[K");
  std::fflush(stderr);
  drawn_ = false;
}

}  // namespace ringbook::cli
