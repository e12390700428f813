#pragma once

#include <cstdint>
#include <vector>

#include "core/Export.h"
#include "core/Variant.h"

namespace ringbook {

/// A two-dimensional array of values of any type with bounds of its own
/// (rows `LBound(1)` to `UBound(1)`, columns `LBound(2)` to `UBound(2)`), as
/// a caller hands one in to be filled. A new array is not yet dimensioned.
/// Every subscript and bound outside the array fails with subscript out of
/// range (9).
class RINGBOOK_EXPORT VariantArray2D {
 public:
  VariantArray2D() = default;

  /// Gives the array new bounds, discarding its contents (every element
  /// Empty). An upper bound below its lower bound fails with 9.
  void ReDim(int32_t row_lower, int32_t row_upper, int32_t column_lower, int32_t column_upper);

  bool IsDimensioned() const { return dimensioned_; }
  /// The lower or upper bound of dimension 1 (rows) or 2 (columns).
  int32_t LBound(int dimension = 1) const;
  int32_t UBound(int dimension = 1) const;

  Variant& operator()(int32_t row, int32_t column);
  const Variant& operator()(int32_t row, int32_t column) const;

 private:
  std::size_t Offset(int32_t row, int32_t column) const;

  bool dimensioned_ = false;
  int32_t lower_[2] = {0, 0};
  int32_t upper_[2] = {-1, -1};
  std::vector<Variant> elements_;
};

}  // namespace ringbook
