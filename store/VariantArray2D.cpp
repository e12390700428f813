#include "store/VariantArray2D.h"

#include "core/Error.h"

namespace ringbook {

void VariantArray2D::ReDim(int32_t row_lower, int32_t row_upper, int32_t column_lower,
                           int32_t column_upper) {
  if (row_upper < row_lower || column_upper < column_lower) {
    throw Error::Runtime(errnum::kSubscriptOutOfRange);
  }
  const auto rows = static_cast<std::size_t>(int64_t{row_upper} - row_lower + 1);
  const auto columns = static_cast<std::size_t>(int64_t{column_upper} - column_lower + 1);
  elements_.assign(rows * columns, Variant());
  lower_[0] = row_lower;
  upper_[0] = row_upper;
  lower_[1] = column_lower;
  upper_[1] = column_upper;
  dimensioned_ = true;
}

int32_t VariantArray2D::LBound(int dimension) const {
  if (!dimensioned_ || dimension < 1 || dimension > 2) {
    throw Error::Runtime(errnum::kSubscriptOutOfRange);
  }
  return lower_[dimension - 1];
}

int32_t VariantArray2D::UBound(int dimension) const {
  if (!dimensioned_ || dimension < 1 || dimension > 2) {
    throw Error::Runtime(errnum::kSubscriptOutOfRange);
  }
  return upper_[dimension - 1];
}

std::size_t VariantArray2D::Offset(int32_t row, int32_t column) const {
  if (!dimensioned_ || row < lower_[0] || row > upper_[0] || column < lower_[1] ||
      column > upper_[1]) {
    throw Error::Runtime(errnum::kSubscriptOutOfRange);
  }
  const auto columns = static_cast<std::size_t>(int64_t{upper_[1]} - lower_[1] + 1);
  return static_cast<std::size_t>(int64_t{row} - lower_[0]) * columns +
         static_cast<std::size_t>(int64_t{column} - lower_[1]);
}

Variant& VariantArray2D::operator()(int32_t row, int32_t column) {
  return elements_[Offset(row, column)];
}

const Variant& VariantArray2D::operator()(int32_t row, int32_t column) const {
  return elements_[Offset(row, column)];
}

}  // namespace ringbook
