#include "support/ListBoxDouble.h"

#include "core/Error.h"

namespace ringbook::test {
namespace {

constexpr int32_t kInvalidPropertyValue = 380;
constexpr int32_t kInvalidPropertyArrayIndex = 381;

Error ControlError(int32_t number, const char* description) {
  return Error(number, "ListBox", description);
}

}  // namespace

const ListBoxDouble::Item& ListBoxDouble::At(int32_t index) const {
  if (index < 0 || index >= ListCount()) {
    throw ControlError(kInvalidPropertyArrayIndex, "Invalid property array index");
  }
  return items_[static_cast<std::size_t>(index)];
}

ListBoxDouble::Item& ListBoxDouble::At(int32_t index) {
  return const_cast<Item&>(static_cast<const ListBoxDouble&>(*this).At(index));
}

void ListBoxDouble::Clear() {
  items_.clear();
  new_index_ = -1;
  list_index_ = -1;
  ++clear_count_;
}

void ListBoxDouble::AddItem(const std::string& text, int32_t index) {
  if (index == -1) index = ListCount();
  if (index < 0 || index > ListCount()) throw Error::InvalidCall();
  items_.insert(items_.begin() + index, Item{text, 0, Variant(), false});
  // The current item stays the same item.
  if (list_index_ >= index) ++list_index_;
  new_index_ = index;
}

int32_t ListBoxDouble::ItemData(int32_t index) const {
  return At(index).data;
}

void ListBoxDouble::SetItemData(int32_t index, int32_t value) {
  At(index).data = value;
}

Variant ListBoxDouble::ItemTag(int32_t index) const {
  return At(index).tag;
}

void ListBoxDouble::SetItemTag(int32_t index, const Variant& value) {
  At(index).tag = value;
}

void ListBoxDouble::SetListIndex(int32_t index) {
  if (index < -1 || index >= ListCount()) {
    throw ControlError(kInvalidPropertyValue, "Invalid property value");
  }
  list_index_ = index;
  if (!multi_select_) {
    for (Item& item : items_) item.selected = false;
    if (index >= 0) At(index).selected = true;
  }
}

bool ListBoxDouble::Selected(int32_t index) const {
  return At(index).selected;
}

void ListBoxDouble::SetSelected(int32_t index, bool selected) {
  Item& item = At(index);
  if (multi_select_) {
    item.selected = selected;
    return;
  }
  if (selected) {
    SetListIndex(index);
  } else if (index == list_index_) {
    item.selected = false;
    list_index_ = -1;
  }
}

void ListBoxDouble::RemoveItem(int32_t index) {
  if (index < 0 || index >= ListCount()) throw Error::InvalidCall();
  items_.erase(items_.begin() + index);
  if (list_index_ == index) {
    list_index_ = -1;
  } else if (list_index_ > index) {
    --list_index_;
  }
  new_index_ = -1;
}

const std::string& ListBoxDouble::List(int32_t index) const {
  return At(index).text;
}

std::vector<std::string> ListBoxDouble::Texts() const {
  std::vector<std::string> texts;
  for (const Item& item : items_) texts.push_back(item.text);
  return texts;
}

std::vector<int32_t> ListBoxDouble::Data() const {
  std::vector<int32_t> data;
  for (const Item& item : items_) data.push_back(item.data);
  return data;
}

std::vector<int32_t> ListBoxDouble::SelectedIndexes() const {
  std::vector<int32_t> selected;
  for (int32_t i = 0; i < ListCount(); ++i) {
    if (items_[static_cast<std::size_t>(i)].selected) selected.push_back(i);
  }
  return selected;
}

}  // namespace ringbook::test
