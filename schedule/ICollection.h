#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "core/Export.h"
#include "core/IListControl.h"
#include "core/Object.h"
#include "core/Variant.h"

namespace ringbook {

/// The contract of a keyed, optionally sorted, in-memory collection.
/// Positions are 1-based. An index-or-key argument is a number (a position)
/// or a string (a key).
///
/// Errors: an implementer records the number and text of the error of the
/// latest member call in `mgErr` and `mgErrDescription` (0 and "" after a
/// call that succeeded) and throws it as `ringbook::Error` only when
/// `mgRaiseErrors` is true; otherwise the member returns an empty result.
/// Members are listed in the contract's slot order.
class RINGBOOK_EXPORT ICollection : public Object {
 public:
  /// Adds `NewItem` (any value) under the optional `ItemKey`, before or after
  /// the item named by `Before` or `After` (a position or a key; Empty when
  /// omitted). Returns the item added, Empty on a recorded error.
  virtual Variant Add(const Variant& NewItem,
                      const std::optional<std::string>& ItemKey = std::nullopt,
                      const Variant& Before = Variant(), const Variant& After = Variant()) = 0;

  /// Removes every item.
  virtual void Clear() = 0;

  /// Number of items.
  virtual int32_t Count() const = 0;

  /// Fills the host's list control `lstControl` with the items; `lFilter`
  /// selects items as the implementer defines, `fForm` is the form that owns
  /// the control. All three may be omitted.
  virtual void FillList(const std::shared_ptr<IListControl>& lstControl = nullptr,
                        int32_t lFilter = 0, const std::shared_ptr<Object>& fForm = nullptr) = 0;

  /// The position of the item stored under `ItemKey`.
  virtual int32_t Index(const std::string& ItemKey) = 0;

  /// The item at a position or under a key.
  virtual Variant Item(const Variant& IndexOrKey) = 0;
  /// Replaces the item at a position or under a key.
  virtual void SetItem(const Variant& IndexOrKey, const Variant& value) = 0;

  /// The key of the item at `ItemIndex`; "" when it has none.
  virtual std::string Key(int32_t ItemIndex) = 0;

  /// The most recently added item.
  virtual Variant LastAdded() const = 0;

  /// Fills the collection with its default items.
  virtual void LoadDefaultItems() = 0;

  /// Removes the item at a position or under a key.
  virtual void Remove(const Variant& IndexOrKey) = 0;

  /// Whether the collection keeps its items sorted.
  virtual bool Sorted() const = 0;
  virtual void SetSorted(bool value) = 0;

  /// Number of the latest error; 0 when the latest call succeeded.
  virtual int16_t mgErr() const = 0;
  /// Text of the latest error; "" when the latest call succeeded.
  virtual std::string mgErrDescription() const = 0;
  /// Whether errors are thrown to the caller as well as recorded.
  virtual bool mgRaiseErrors() const = 0;
  virtual void SetmgRaiseErrors(bool value) = 0;
};

}  // namespace ringbook
