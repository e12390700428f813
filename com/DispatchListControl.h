#pragma once

#include <windows.h>

#include <oaidl.h>

#include <optional>

#include "com/DispatchCaller.h"
#include "com/HostObject.h"
#include "core/IListControl.h"

namespace ringbook::com {

/// A list control of the host (list box, combo box, grid, or a script's
/// object with the same members) driven by member name through its
/// IDispatch: "Clear", "AddItem", "NewIndex", "ItemData", "ItemTag",
/// "ListCount", "ListIndex", "Selected", "RemoveItem", "Refresh" and
/// "Font" ("Bold"). Errors of the control pass to the caller unchanged.
///
/// It is a list box when its type information names its class "ListBox";
/// an object without type information (a script's object) counts as a list
/// box when it has an "ItemData" member and no "ItemTag" member (the other
/// controls keep their values in ItemTag). `AddItem` without an index
/// passes the index as an omitted optional argument, so that a script's
/// AddItem(Text, Index) is called with both parameters.
class DispatchListControl : public IListControl, public HostReference {
 public:
  explicit DispatchListControl(IDispatch* control) : caller_(control) {}

  IDispatch* Dispatch() const override { return caller_.Object(); }

  bool IsListBox() const override;
  void Clear() override;
  void AddItem(const std::string& text, int32_t index = -1) override;
  int32_t NewIndex() const override;
  int32_t ItemData(int32_t index) const override;
  void SetItemData(int32_t index, int32_t value) override;
  Variant ItemTag(int32_t index) const override;
  void SetItemTag(int32_t index, const Variant& value) override;
  int32_t ListCount() const override;
  int32_t ListIndex() const override;
  void SetListIndex(int32_t index) override;
  bool Selected(int32_t index) const override;
  void SetSelected(int32_t index, bool selected) override;
  void RemoveItem(int32_t index) override;
  void Refresh() override;
  void SetFontBold(bool bold) override;

 private:
  // Lookups are cached per name, which the const members need too.
  mutable DispatchCaller caller_;
  mutable std::optional<bool> list_box_;
};

/// A list-control argument as the library takes it: a host object becomes a
/// DispatchListControl, Nothing an empty reference, an omitted argument
/// Empty; any other value is passed on for the library to judge.
Variant ListControlArgument(const VARIANT& value);

}  // namespace ringbook::com
