#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/IListControl.h"
#include "core/Variant.h"

namespace ringbook::test {

/// A list control that behaves like the host's list box: items inserted at
/// an index, `NewIndex` the last added, `ItemData` and `ItemTag` per item,
/// `ListIndex`, multi-select `Selected`, `RemoveItem` closing the gap. Every
/// index is checked as the host checks it (invalid argument 5 for
/// `AddItem`/`RemoveItem`, invalid property array index 381 for per-item
/// properties, invalid property value 380 for `ListIndex`). It can also play
/// a control that is not a list box.
class ListBoxDouble : public IListControl {
 public:
  /// `multi_select` false: selecting an item deselects the others and moves
  /// `ListIndex` to it, as in a single-selection list box.
  explicit ListBoxDouble(bool is_list_box = true, bool multi_select = true)
      : is_list_box_(is_list_box), multi_select_(multi_select) {}

  bool IsListBox() const override { return is_list_box_; }
  void Clear() override;
  void AddItem(const std::string& text, int32_t index = -1) override;
  int32_t NewIndex() const override { return new_index_; }
  int32_t ItemData(int32_t index) const override;
  void SetItemData(int32_t index, int32_t value) override;
  Variant ItemTag(int32_t index) const override;
  void SetItemTag(int32_t index, const Variant& value) override;
  int32_t ListCount() const override { return static_cast<int32_t>(items_.size()); }
  int32_t ListIndex() const override { return list_index_; }
  void SetListIndex(int32_t index) override;
  bool Selected(int32_t index) const override;
  void SetSelected(int32_t index, bool selected) override;
  void RemoveItem(int32_t index) override;
  void Refresh() override { ++refresh_count_; }
  void SetFontBold(bool bold) override { font_bold_ = bold; }

  // What a test inspects.
  const std::string& List(int32_t index) const;
  std::vector<std::string> Texts() const;
  std::vector<int32_t> Data() const;
  std::vector<int32_t> SelectedIndexes() const;
  int RefreshCount() const { return refresh_count_; }
  int ClearCount() const { return clear_count_; }
  bool FontBold() const { return font_bold_; }

 private:
  struct Item {
    std::string text;
    int32_t data = 0;
    Variant tag;
    bool selected = false;
  };
  const Item& At(int32_t index) const;
  Item& At(int32_t index);

  bool is_list_box_;
  bool multi_select_;
  std::vector<Item> items_;
  int32_t new_index_ = -1;
  int32_t list_index_ = -1;
  int refresh_count_ = 0;
  int clear_count_ = 0;
  bool font_bold_ = false;
};

}  // namespace ringbook::test
