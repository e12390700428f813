#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/Error.h"
#include "core/Export.h"
#include "schedule/ICollection.h"
#include "schedule/ISortHelper.h"

namespace ringbook {

/// A general-purpose keyed collection with the runtime Collection's rules,
/// optionally kept sorted.
///
/// Items are values of any type at 1-based positions. A key is a non-empty
/// string, unique in the collection and matched without regard to letter
/// case; an empty `ItemKey` means "no key". An index-or-key argument is a
/// string (a key) or a number (a position); anything else is an invalid
/// procedure call. Lookups by key and by position take constant time on
/// average; adding or removing shifts the items after it.
///
/// Errors, recorded in `mgErr`/`mgErrDescription` (source: the component's
/// name) and thrown only when `mgRaiseErrors` is true, which it is not
/// initially:
/// - 5 "Invalid procedure call or argument": a position outside 1 to Count, a
///   key that is not in the collection, `Before` and `After` both given, or
///   `Before`/`After` given to a sorted collection;
/// - 457 "This key is already associated with an element of this
///   collection": a duplicate key;
/// - 13 "Type mismatch": an item of a sorted collection that is not an
///   `ISortedObject`; errors of the sort helper pass on as it raised them.
/// A member that fails changes nothing. `mgErr` is 16-bit: a number outside
/// that range is recorded by its low 16 bits (the code of an HRESULT), while
/// the thrown error keeps the full number.
class RINGBOOK_EXPORT CKeyedCollection : public ICollection {
 public:
  /// `helper` orders the items while `Sorted` is true; nullptr gives a new
  /// `CSortHelper` (text compare, ascending). The helper is shared, not
  /// copied: changing its mode on a non-empty sorted collection is the
  /// caller's business.
  explicit CKeyedCollection(std::shared_ptr<ISortHelper> helper = nullptr);
  ~CKeyedCollection() override;

  CKeyedCollection(const CKeyedCollection&) = delete;
  CKeyedCollection& operator=(const CKeyedCollection&) = delete;

  /// Unsorted: adds at the end, or before/after the item named by `Before`
  /// or `After` (a position or a key). Sorted: `NewItem` must be an
  /// `ISortedObject`, and it goes where `MSort::Find` places it; an item
  /// equal to some already held goes after all of them, so equal items keep
  /// the order in which they were added. Returns `NewItem`; Empty on a
  /// recorded error.
  Variant Add(const Variant& NewItem, const std::optional<std::string>& ItemKey = std::nullopt,
              const Variant& Before = Variant(), const Variant& After = Variant()) override;

  /// Removes every item; `LastAdded` becomes Empty. `Sorted` keeps its value.
  void Clear() override;

  int32_t Count() const override;

  /// Clears `lstControl` and adds the text of every item in order: a sorted
  /// object's text is the text of its sort key, any other value its own text
  /// (Null as ""). `lFilter` and `fForm` are not used by this collection.
  /// Without a control it does nothing. An item that is another kind of
  /// object fails with 438 after the items before it were added.
  void FillList(const std::shared_ptr<IListControl>& lstControl = nullptr, int32_t lFilter = 0,
                const std::shared_ptr<Object>& fForm = nullptr) override;

  /// The position of the item under `ItemKey`; 0 on a recorded error.
  int32_t Index(const std::string& ItemKey) override;

  /// The item at a position or under a key; Empty on a recorded error.
  Variant Item(const Variant& IndexOrKey) override;

  /// Replaces the item at a position or under a key; it keeps its key. In a
  /// sorted collection the new item must be an `ISortedObject` and moves to
  /// its place in the order (after the items equal to it).
  void SetItem(const Variant& IndexOrKey, const Variant& value) override;

  /// The key of the item at `ItemIndex`; "" when it has none or on a
  /// recorded error.
  std::string Key(int32_t ItemIndex) override;

  /// The item most recently added (Empty after construction and `Clear`). It
  /// stays the same when that item is later removed or replaced.
  Variant LastAdded() const override;

  /// A general collection has no default items: does nothing.
  void LoadDefaultItems() override;

  void Remove(const Variant& IndexOrKey) override;

  bool Sorted() const override;
  /// Accepted only while the collection is empty. Otherwise error 511 "Sorted
  /// property is read-only if the collection is not empty" is recorded and
  /// always thrown, whatever `mgRaiseErrors` says, and the flag keeps its
  /// value.
  void SetSorted(bool value) override;

  int16_t mgErr() const override;
  std::string mgErrDescription() const override;
  /// Initially false: errors are recorded and members return empty results.
  bool mgRaiseErrors() const override;
  void SetmgRaiseErrors(bool value) override;

  /// The helper that orders the items of a sorted collection.
  const std::shared_ptr<ISortHelper>& SortHelper() const noexcept { return helper_; }

 private:
  struct Entry {
    Variant item;
    std::string key;        // empty: no key
    std::size_t index = 0;  // 0-based position in entries_
  };
  // Keys are matched as the runtime's Collection matches them: without
  // regard to case, with `text::CompareNoCase` deciding equality.
  struct KeyHash {
    std::size_t operator()(std::string_view key) const noexcept;
  };
  struct KeyEqual {
    bool operator()(std::string_view a, std::string_view b) const noexcept;
  };

  template <class F>
  auto pvtGuard(F&& body) -> decltype(body());
  void pvtRecord(const Error& e);

  Entry& pvtEntry(const Variant& IndexOrKey);
  Entry& pvtEntryAt(int32_t position);
  Entry& pvtEntryByKey(std::string_view key);
  std::size_t pvtSortedPlace(const Variant& item);
  void pvtInsert(std::unique_ptr<Entry> entry, std::size_t index);
  std::unique_ptr<Entry> pvtExtract(std::size_t index);

  std::vector<std::unique_ptr<Entry>> entries_;
  // Views into the entries' own keys, which stay put while the entry lives.
  std::unordered_map<std::string_view, Entry*, KeyHash, KeyEqual> by_key_;
  std::shared_ptr<ISortHelper> helper_;
  Variant last_added_;
  bool sorted_ = false;
  bool raise_errors_ = false;
  int16_t err_ = 0;
  std::string err_description_;
};

}  // namespace ringbook
