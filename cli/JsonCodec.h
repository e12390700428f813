#pragma once

// Fight cards, tournaments and options as JSON, through their public
// properties. Every value a saved file holds is in the JSON, so a file the
// library wrote comes back byte for byte when its JSON is read into a new
// object and that object saves itself. Values a file does not hold (wagers,
// winners, odds, display switches of a card) are left out.
#include <memory>
#include <string>

#include "cards/CBout.h"
#include "cards/CFightCard.h"
#include "cli/Fields.h"
#include "options/COptions.h"
#include "schedule/CTournament.h"

namespace ringbook::cli {

/// The "kind" of each document, checked when one is read.
inline constexpr const char* kCardKind = "fight-card";
inline constexpr const char* kTournamentKind = "tournament";
inline constexpr const char* kOptionsKind = "options";

Json OptionsToJson(const COptions& options);
/// New options holding the values of `json`: they take the document's
/// style first (which loads or writes that style's options file, as any new
/// options do), then every value of the document through their setters, in
/// an order that no setter rule can undo.
std::shared_ptr<COptions> OptionsFromJson(const Json& json, const std::string& what);

Json BoutToJson(const CBout& bout);
/// Fills `bout` from `json`, with new options of its own.
void BoutFromJson(CBout& bout, const Json& json, const std::string& what);

Json CardToJson(const CFightCard& card);
/// Fills the new card `card` from `json`.
void CardFromJson(CFightCard& card, const Json& json);

Json TournamentToJson(const CTournament& tournament);
/// Fills the new tournament `tournament` from `json`.
void TournamentFromJson(CTournament& tournament, const Json& json);

/// The options document of an options file (`OptionsToJson` with its kind).
Json OptionsDocument(const COptions& options);

/// Fails unless `json` is an object whose "kind" is `kind`.
void CheckKind(const Json& json, const char* kind);

}  // namespace ringbook::cli
