#pragma once

// The fighter row: the columns of "qryFighters" that the fighter collection
// reads and writes, with their read and write rules. Private to the
// library.

#include <cstdint>
#include <string>

#include "core/Variant.h"
#include "fighters/CFighter.h"
#include "store/RecordCollection.h"

namespace ringbook::fighters {

/// A number column as the fighter collection reads it: the sum of the
/// column's value and the integer 0, which is all the Null handling numbers
/// get. Null stays Null, so converting the result to the property's type
/// fails with invalid use of Null (94); Empty gives 0; text is read as a
/// number (type mismatch, 13, when it is not one).
Variant ColumnSum(const Variant& value);

/// The number of titles in a `TitleIDs` text as "NumTitles" stores it: 0 for
/// an empty text, otherwise the number of "|" characters less one ("|3|17|"
/// counts 2).
int32_t CountTitles(const std::string& TitleIDs);

/// Whether `Performance` holds a number the "Performance" column can take:
/// the numeric kinds, Booleans, and text that reads as a number. Empty,
/// Null, dates and other text are not numbers.
bool IsNumericPerformance(const Variant& value);

/// The fighter collection's description: "qryFighters", its key and
/// message, and every column in reading order ("GroupID", "FighterID",
/// "FirstName" ... "TitleIDs", then "NumTitles", which is only written).
/// Profile columns carry `ersProfile` as their section and come before the
/// career columns, which carry `ersCareer`.
const CollectionDescription<CFighter>& FighterCollection();

}  // namespace ringbook::fighters
