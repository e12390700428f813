#pragma once

#include <cstdint>
#include <string>

#include "core/Object.h"
#include "core/Variant.h"

namespace ringbook {

/// A list control of the host (list box, combo box, grid) as the collections
/// drive it. Indexes are 0-based; -1 means "none" for `NewIndex` and
/// `ListIndex`. Errors of the control pass to the caller unchanged.
class IListControl : public Object {
 public:
  /// True for the host's standard list box; the typed collections bind only
  /// list boxes, and fill `ItemData` rather than `ItemTag` for them.
  virtual bool IsListBox() const = 0;

  virtual void Clear() = 0;
  /// Adds an item at `index`, or at the end when `index` is -1.
  virtual void AddItem(const std::string& text, int32_t index = -1) = 0;
  /// Index of the most recently added item.
  virtual int32_t NewIndex() const = 0;
  virtual int32_t ItemData(int32_t index) const = 0;
  virtual void SetItemData(int32_t index, int32_t value) = 0;
  virtual Variant ItemTag(int32_t index) const = 0;
  virtual void SetItemTag(int32_t index, const Variant& value) = 0;
  virtual int32_t ListCount() const = 0;
  virtual int32_t ListIndex() const = 0;
  virtual void SetListIndex(int32_t index) = 0;
  virtual bool Selected(int32_t index) const = 0;
  virtual void SetSelected(int32_t index, bool selected) = 0;
  virtual void RemoveItem(int32_t index) = 0;
  virtual void Refresh() = 0;
  /// The control's `Font.Bold`.
  virtual void SetFontBold(bool bold) = 0;
};

}  // namespace ringbook
