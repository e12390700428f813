#include "schedule/CKeyedCollection.h"

#include <type_traits>
#include <utility>

#include "core/Text.h"
#include "schedule/CSortHelper.h"
#include "schedule/ISortedObject.h"
#include "schedule/MSort.h"

namespace ringbook {
namespace {

constexpr int32_t kKeyInUse = 457;
constexpr int32_t kSortedReadOnly = 511;

Error KeyInUse() {
  return Error(kKeyInUse, std::string(kComponentName),
               "This key is already associated with an element of this collection");
}

Error SortedReadOnly() {
  return Error(kSortedReadOnly, std::string(kComponentName),
               "Sorted property is read-only if the collection is not empty");
}

// The item of a sorted collection as a sorted object.
std::shared_ptr<ISortedObject> SortedObjectOf(const Variant& item) {
  auto sorted = item.As<ISortedObject>();
  if (!sorted) throw Error::ObjectNotSet();
  return sorted;
}

// The text an item shows in a list control.
std::string ItemText(const Variant& item) {
  if (!item.IsObject()) return item.ToText();
  const std::shared_ptr<Object> object = item.ToObject();
  if (!object) throw Error::ObjectNotSet();
  const auto sorted = std::dynamic_pointer_cast<ISortedObject>(object);
  if (!sorted) throw Error::Runtime(errnum::kObjectDoesNotSupport);
  return sorted->SortKey().ToText();
}

}  // namespace

// Keys that compare equal without regard to case must hash alike. The case
// fold of `text::CompareNoCase` maps ASCII letters to ASCII letters and every
// other character to a character outside ASCII, and ASCII bytes never belong
// to a longer UTF-8 sequence; so equal keys have the same ASCII bytes after
// folding, in the same order. Hashing only those keeps the two consistent
// without a second copy of the fold.
std::size_t CKeyedCollection::KeyHash::operator()(std::string_view key) const noexcept {
  uint64_t hash = 14695981039346656037ull;  // FNV-1a, cut to size_t at the end
  for (const char c : key) {
    auto b = static_cast<unsigned char>(c);
    if (b >= 0x80) continue;
    if (b >= 'a' && b <= 'z') b = static_cast<unsigned char>(b - ('a' - 'A'));
    hash = (hash ^ b) * 1099511628211ull;
  }
  return static_cast<std::size_t>(hash);
}

bool CKeyedCollection::KeyEqual::operator()(std::string_view a, std::string_view b) const noexcept {
  return text::CompareNoCase(a, b) == 0;
}

CKeyedCollection::CKeyedCollection(std::shared_ptr<ISortHelper> helper)
    : helper_(helper ? std::move(helper) : std::make_shared<CSortHelper>()) {}

CKeyedCollection::~CKeyedCollection() = default;

// Runs one member: clears the error state, and on failure records the error
// and either throws it or returns an empty result.
template <class F>
auto CKeyedCollection::pvtGuard(F&& body) -> decltype(body()) {
  using Result = decltype(body());
  err_ = 0;
  err_description_.clear();
  try {
    return body();
  } catch (const Error& e) {
    pvtRecord(e);
    if (raise_errors_) throw;
    if constexpr (!std::is_void_v<Result>) return Result{};
  }
}

void CKeyedCollection::pvtRecord(const Error& e) {
  err_ = static_cast<int16_t>(static_cast<uint16_t>(e.Number()));
  err_description_ = e.Description();
}

CKeyedCollection::Entry& CKeyedCollection::pvtEntry(const Variant& IndexOrKey) {
  if (IndexOrKey.IsString()) return pvtEntryByKey(IndexOrKey.ToString());
  if (IndexOrKey.IsNumeric()) return pvtEntryAt(IndexOrKey.ToLong());
  throw Error::InvalidCall();
}

CKeyedCollection::Entry& CKeyedCollection::pvtEntryAt(int32_t position) {
  if (position < 1 || static_cast<std::size_t>(position) > entries_.size()) {
    throw Error::InvalidCall();
  }
  return *entries_[static_cast<std::size_t>(position) - 1];
}

CKeyedCollection::Entry& CKeyedCollection::pvtEntryByKey(std::string_view key) {
  const auto found = by_key_.find(key);
  if (found == by_key_.end()) throw Error::InvalidCall();
  return *found->second;
}

// The 0-based index at which `item` keeps a sorted collection in order.
std::size_t CKeyedCollection::pvtSortedPlace(const Variant& item) {
  const std::shared_ptr<ISortedObject> sorted = SortedObjectOf(item);
  int32_t position = 0;
  if (!MSort::Find(*this, sorted, position, helper_.get())) {
    return static_cast<std::size_t>(position) - 1;
  }
  // The search lands on any one of a run of equal items; going past the
  // whole run keeps equal items in the order they were added.
  std::size_t after = static_cast<std::size_t>(position);
  while (after < entries_.size() &&
         helper_->Compare(entries_[after]->item, item) == ecrComparisonEqual) {
    ++after;
  }
  return after;
}

void CKeyedCollection::pvtInsert(std::unique_ptr<Entry> entry, std::size_t index) {
  Entry* raw = entry.get();
  entries_.insert(entries_.begin() + static_cast<std::ptrdiff_t>(index), std::move(entry));
  for (std::size_t i = index; i < entries_.size(); ++i) entries_[i]->index = i;
  if (!raw->key.empty()) by_key_.emplace(raw->key, raw);
}

std::unique_ptr<CKeyedCollection::Entry> CKeyedCollection::pvtExtract(std::size_t index) {
  std::unique_ptr<Entry> entry = std::move(entries_[index]);
  entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(index));
  for (std::size_t i = index; i < entries_.size(); ++i) entries_[i]->index = i;
  if (!entry->key.empty()) by_key_.erase(entry->key);
  return entry;
}

Variant CKeyedCollection::Add(const Variant& NewItem, const std::optional<std::string>& ItemKey,
                              const Variant& Before, const Variant& After) {
  return pvtGuard([&] {
    std::string key = ItemKey.value_or(std::string());
    if (!key.empty() && by_key_.contains(key)) throw KeyInUse();

    std::size_t index = entries_.size();
    if (sorted_) {
      // The order decides the place.
      if (!Before.IsEmpty() || !After.IsEmpty()) throw Error::InvalidCall();
      index = pvtSortedPlace(NewItem);
    } else if (!Before.IsEmpty() && !After.IsEmpty()) {
      throw Error::InvalidCall();
    } else if (!Before.IsEmpty()) {
      index = pvtEntry(Before).index;
    } else if (!After.IsEmpty()) {
      index = pvtEntry(After).index + 1;
    }

    auto entry = std::make_unique<Entry>();
    entry->item = NewItem;
    entry->key = std::move(key);
    pvtInsert(std::move(entry), index);
    last_added_ = NewItem;
    return NewItem;
  });
}

void CKeyedCollection::Clear() {
  err_ = 0;
  err_description_.clear();
  by_key_.clear();
  entries_.clear();
  last_added_ = Variant();
}

int32_t CKeyedCollection::Count() const {
  return static_cast<int32_t>(entries_.size());
}

void CKeyedCollection::FillList(const std::shared_ptr<IListControl>& lstControl,
                                int32_t /*lFilter*/, const std::shared_ptr<Object>& /*fForm*/) {
  pvtGuard([&] {
    if (!lstControl) return;
    lstControl->Clear();
    for (const auto& entry : entries_) lstControl->AddItem(ItemText(entry->item));
  });
}

int32_t CKeyedCollection::Index(const std::string& ItemKey) {
  return pvtGuard([&] { return static_cast<int32_t>(pvtEntryByKey(ItemKey).index + 1); });
}

Variant CKeyedCollection::Item(const Variant& IndexOrKey) {
  return pvtGuard([&] { return pvtEntry(IndexOrKey).item; });
}

void CKeyedCollection::SetItem(const Variant& IndexOrKey, const Variant& value) {
  pvtGuard([&] {
    Entry& entry = pvtEntry(IndexOrKey);
    if (!sorted_) {
      entry.item = value;
      return;
    }
    SortedObjectOf(value);
    // Take the entry out, find the new value's place among the others, and
    // put the entry back where it was if that fails.
    const std::size_t old_index = entry.index;
    std::unique_ptr<Entry> taken = pvtExtract(old_index);
    std::size_t new_index = old_index;
    try {
      new_index = pvtSortedPlace(value);
    } catch (...) {
      pvtInsert(std::move(taken), old_index);
      throw;
    }
    taken->item = value;
    pvtInsert(std::move(taken), new_index);
  });
}

std::string CKeyedCollection::Key(int32_t ItemIndex) {
  return pvtGuard([&] { return pvtEntryAt(ItemIndex).key; });
}

Variant CKeyedCollection::LastAdded() const {
  return last_added_;
}

void CKeyedCollection::LoadDefaultItems() {}

void CKeyedCollection::Remove(const Variant& IndexOrKey) {
  pvtGuard([&] { pvtExtract(pvtEntry(IndexOrKey).index); });
}

bool CKeyedCollection::Sorted() const {
  return sorted_;
}

void CKeyedCollection::SetSorted(bool value) {
  err_ = 0;
  err_description_.clear();
  if (!entries_.empty()) {
    const Error e = SortedReadOnly();
    pvtRecord(e);
    throw e;
  }
  sorted_ = value;
}

int16_t CKeyedCollection::mgErr() const {
  return err_;
}

std::string CKeyedCollection::mgErrDescription() const {
  return err_description_;
}

bool CKeyedCollection::mgRaiseErrors() const {
  return raise_errors_;
}

void CKeyedCollection::SetmgRaiseErrors(bool value) {
  raise_errors_ = value;
}

}  // namespace ringbook
