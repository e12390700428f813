#pragma once

// The tool's list control: the library's collections fill it as they fill a
// list box of the game, and the tool reads the items back (text and ID).
#include <cstdint>
#include <string>
#include <vector>

#include "core/IListControl.h"
#include "core/Variant.h"

namespace ringbook::cli {

/// A list box in memory. An index outside the items fails with invalid
/// procedure call, as the game's list box does.
class MemoryList : public IListControl {
 public:
  struct Item {
    std::string text;
    int32_t data = 0;
    Variant tag;
    bool selected = false;
  };

  bool IsListBox() const override { return true; }
  void Clear() override;
  void AddItem(const std::string& text, int32_t index = -1) override;
  int32_t NewIndex() const override { return new_index_; }
  int32_t ItemData(int32_t index) const override { return At(index).data; }
  void SetItemData(int32_t index, int32_t value) override { At(index).data = value; }
  Variant ItemTag(int32_t index) const override { return At(index).tag; }
  void SetItemTag(int32_t index, const Variant& value) override { At(index).tag = value; }
  int32_t ListCount() const override { return static_cast<int32_t>(items_.size()); }
  int32_t ListIndex() const override { return list_index_; }
  void SetListIndex(int32_t index) override { list_index_ = index; }
  bool Selected(int32_t index) const override { return At(index).selected; }
  void SetSelected(int32_t index, bool selected) override { At(index).selected = selected; }
  void RemoveItem(int32_t index) override;
  void Refresh() override {}
  void SetFontBold(bool bold) override { bold_ = bold; }

  const std::vector<Item>& Items() const { return items_; }
  bool Bold() const { return bold_; }

 private:
  const Item& At(int32_t index) const;
  Item& At(int32_t index);

  std::vector<Item> items_;
  int32_t new_index_ = -1;
  int32_t list_index_ = -1;
  bool bold_ = false;
};

}  // namespace ringbook::cli
