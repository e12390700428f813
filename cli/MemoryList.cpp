#include "cli/MemoryList.h"

#include <utility>

#include "core/Error.h"

namespace ringbook::cli {

void MemoryList::Clear() {
  items_.clear();
  new_index_ = -1;
  list_index_ = -1;
}

void MemoryList::AddItem(const std::string& text, int32_t index) {
  const auto count = static_cast<int32_t>(items_.size());
  if (index < -1 || index > count) throw Error::InvalidCall();
  const int32_t at = index == -1 ? count : index;
  Item item;
  item.text = text;
  items_.insert(items_.begin() + at, std::move(item));
  new_index_ = at;
}

void MemoryList::RemoveItem(int32_t index) {
  At(index);
  items_.erase(items_.begin() + index);
}

const MemoryList::Item& MemoryList::At(int32_t index) const {
  if (index < 0 || index >= static_cast<int32_t>(items_.size())) throw Error::InvalidCall();
  return items_[static_cast<std::size_t>(index)];
}

MemoryList::Item& MemoryList::At(int32_t index) {
  if (index < 0 || index >= static_cast<int32_t>(items_.size())) throw Error::InvalidCall();
  return items_[static_cast<std::size_t>(index)];
}

}  // namespace ringbook::cli
