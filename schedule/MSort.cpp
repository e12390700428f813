#include "schedule/MSort.h"

#include "schedule/CSortHelper.h"

namespace ringbook::MSort {

bool Find(ICollection& items, const std::shared_ptr<ISortedObject>& item, int32_t& position,
          ISortHelper* helper) {
  CSortHelper default_helper;
  if (helper == nullptr) helper = &default_helper;

  const int32_t count = items.Count();
  if (count == 0) {
    position = 1;
    return false;
  }

  const Variant wanted(item);
  int32_t low = 1;
  int32_t high = count;
  int32_t middle = 1;
  ECompareResults result = ecrComparisonEqual;
  for (;;) {
    middle = low + (high - low) / 2;
    result = helper->Compare(items.Item(Variant(middle)), wanted);
    if (result == ecrComparisonEqual) {
      position = middle;
      return true;
    }
    if (result == ecrComparisonLessThan) {
      low = middle + 1;
      if (low > high) break;
    } else {
      high = middle - 1;
      if (high < low) break;
    }
  }
  // The collection's item at `middle` was less: the new one goes after it;
  // it was greater: the new one takes its place.
  position = result == ecrComparisonLessThan ? middle + 1 : middle;
  return false;
}

}  // namespace ringbook::MSort
