#pragma once

// A tournament's draw as a picture: an SVG document a browser opens.
#include <string>

#include "schedule/CTournament.h"

namespace ringbook::cli {

/// The bracket of `tournament`: one column per level, from the level with
/// the most brackets (the first round) to level 1 (the final), each bout a
/// box naming its two fighters, joined to the bout its winner goes on to.
/// Bouts that are not displayed are drawn dashed and grey.
std::string BracketSvg(const CTournament& tournament);

}  // namespace ringbook::cli
