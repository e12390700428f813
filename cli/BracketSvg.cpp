#include "cli/BracketSvg.h"

#include <algorithm>
#include <cstdio>
#include <vector>

#include "cards/CBout.h"
#include "schedule/CLevel.h"

namespace ringbook::cli {
namespace {

constexpr int kMargin = 24;
constexpr int kTitleHeight = 56;
constexpr int kColumnWidth = 230;
constexpr int kBoxWidth = 190;
constexpr int kRowHeight = 22;  // one fighter's line
constexpr int kBoxHeight = 2 * kRowHeight;
constexpr int kBoxGap = 18;

std::string Escape(const std::string& text) {
  std::string out;
  for (char c : text) {
    switch (c) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      case '"':
        out += "&quot;";
        break;
      default:
        out += c;
    }
  }
  return out;
}

std::string Num(double v) {
  char buf[32];
  std::snprintf(buf, sizeof buf, "%.1f", v);
  return buf;
}

}  // namespace

std::string BracketSvg(const CTournament& tournament) {
  // Columns from the first round to the final.
  std::vector<std::shared_ptr<CLevel>> columns;
  for (int16_t i = tournament.Levels(); i >= 1; --i) {
    if (auto level = tournament.Level(i)) columns.push_back(level);
  }
  int most = 1;
  for (const auto& level : columns) most = std::max<int>(most, level->BoutCount());
  const int body = most * (kBoxHeight + kBoxGap);
  const int width = 2 * kMargin + std::max<int>(1, static_cast<int>(columns.size())) * kColumnWidth;
  const int height = kTitleHeight + body + kMargin;

  std::string svg;
  svg += "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
  svg += "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + std::to_string(width) +
         "\" height=\"" + std::to_string(height) + "\" viewBox=\"0 0 " + std::to_string(width) +
         " " + std::to_string(height) + "\" font-family=\"sans-serif\" font-size=\"13\">\n";
  svg += "<rect width=\"100%\" height=\"100%\" fill=\"#ffffff\"/>\n";
  svg += "<text x=\"" + std::to_string(kMargin) +
         "\" y=\"28\" font-size=\"20\" font-weight=\"bold\">" + Escape(tournament.Name()) +
         "</text>\n";

  // Box centres per column: evenly spread over the body, which puts each
  // bout half way between the two that feed it.
  auto centre = [&](std::size_t column, int index) {
    const int count = std::max<int>(1, columns[column]->BoutCount());
    return kTitleHeight + body * (index + 0.5) / count;
  };

  for (std::size_t c = 0; c < columns.size(); ++c) {
    const CLevel& level = *columns[c];
    const int x = kMargin + static_cast<int>(c) * kColumnWidth;
    const int number = tournament.Levels() - static_cast<int>(c);
    svg += "<text x=\"" + std::to_string(x) + "\" y=\"48\" fill=\"#555555\">Level " +
           std::to_string(number) + " \xC2\xB7 " + std::to_string(level.Brackets()) +
           " brackets \xC2\xB7 " + std::to_string(level.Rounds()) + " rounds</text>\n";
    const bool feeds =
        c + 1 < columns.size() && level.BoutCount() == 2 * columns[c + 1]->BoutCount();
    for (int16_t b = 1; b <= level.BoutCount(); ++b) {
      const std::shared_ptr<CBout> bout = level.Bout(b);
      const double y = centre(c, b - 1) - kBoxHeight / 2.0;
      const bool shown = level.DisplayFight(b);
      svg += "<g class=\"bout\"" + std::string(shown ? "" : " opacity=\"0.5\"") + ">\n";
      svg += "<rect x=\"" + std::to_string(x) + "\" y=\"" + Num(y) + "\" width=\"" +
             std::to_string(kBoxWidth) + "\" height=\"" + std::to_string(kBoxHeight) +
             "\" rx=\"4\" fill=\"#f4f6fb\" stroke=\"" + (shown ? "#33415c" : "#999999") + "\"" +
             (shown ? "" : " stroke-dasharray=\"4 3\"") + "/>\n";
      svg += "<line x1=\"" + std::to_string(x) + "\" y1=\"" + Num(y + kRowHeight) + "\" x2=\"" +
             std::to_string(x + kBoxWidth) + "\" y2=\"" + Num(y + kRowHeight) +
             "\" stroke=\"#c9cfdc\"/>\n";
      for (int16_t f = 1; f <= 2; ++f) {
        std::string name = bout ? bout->FighterName(f) : std::string();
        if (name.empty()) name = "\xE2\x80\x94";  // an em dash for an open place
        svg += "<text x=\"" + std::to_string(x + 8) + "\" y=\"" +
               Num(y + (f - 1) * kRowHeight + 15) + "\">" + Escape(name) + "</text>\n";
      }
      svg += "</g>\n";
      if (feeds) {
        const double from = centre(c, b - 1);
        const double to = centre(c + 1, (b - 1) / 2);
        const int x1 = x + kBoxWidth;
        const int xm = x + kBoxWidth + (kColumnWidth - kBoxWidth) / 2;
        const int x2 = x + kColumnWidth;
        svg += "<path d=\"M" + std::to_string(x1) + " " + Num(from) + " H" + std::to_string(xm) +
               " V" + Num(to) + " H" + std::to_string(x2) +
               "\" fill=\"none\" stroke=\"#33415c\"/>\n";
      }
    }
  }
  svg += "</svg>\n";
  return svg;
}

}  // namespace ringbook::cli
