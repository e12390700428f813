#pragma once

#include <cstdint>

namespace ringbook {

/// How `CSortHelper` compares two sorted objects.
enum ESortMode : int16_t {
  esmUnsorted = -1,
  esmValueCompare = 0,
  esmTextCompare = 1,
  esmBinaryCompare = 2,
  esmLengthCompare = 3,
  esmNumericCompare = 0,
  // These two aliases are spelled so on purpose: hosts use the names as
  // published.
  esmCaseInsensitve = 1,
  esmCaseSensitve = 2,
};

/// The direction of a sort; descending negates every comparison.
enum ESortOrder : int32_t {
  esoSortAscending = 0,
  esoSortDescending = -1,
};

/// The result of `ISortHelper::Compare`.
enum ECompareResults : int32_t {
  ecrComparisonLessThan = -1,
  ecrComparisonEqual = 0,
  ecrComparisonGreaterThan = 1,
};

/// The sort helper's own error numbers.
enum EErrorSortHelper : int32_t {
  eeBaseSortHelper = 13220,
  eeMissingKey = 13221,
};

}  // namespace ringbook
