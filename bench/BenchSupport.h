#pragma once

// What the benchmarks of the database-backed collections share: a folder of
// worlds removed at exit, deterministic numbers, a list control that only
// keeps its items, and the few SQLite calls of the direct side, which abort
// on failure (a benchmark has nobody to report to).

#include <sqlite3.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "core/IListControl.h"
#include "core/Variant.h"

namespace ringbook::bench {

/// Deterministic numbers for names and values.
class Lcg {
 public:
  explicit Lcg(uint64_t seed) : state_(seed) {}
  uint32_t Next() {
    state_ = state_ * 6364136223846793005ull + 1442695040888963407ull;
    return static_cast<uint32_t>(state_ >> 33);
  }
  /// From 0 to `bound` - 1.
  int Below(int bound) { return static_cast<int>(Next() % static_cast<uint32_t>(bound)); }
  /// From `low` to `high`, both included.
  int Between(int low, int high) { return low + Below(high - low + 1); }

 private:
  uint64_t state_;
};

/// A name of two or three of `syllables` (16 of them), capitalized.
std::string NameOf(Lcg& rng, const char* const (&syllables)[16]);

/// The process's folder of worlds under the system's temporary folder,
/// "ringbook-bench-<kind>-<pid>", made on first use and removed at exit.
/// The first call names it; later calls return it whatever `kind`.
const std::filesystem::path& Folder(const char* kind);

/// Opens `path` for reading and writing with the store's connection
/// settings: synchronous NORMAL, the file mapped into memory, the store's
/// lock wait.
sqlite3* OpenDirect(const std::string& path);
void Exec(sqlite3* db, const std::string& sql);
/// A statement prepared to be kept.
sqlite3_stmt* Prepare(sqlite3* db, const std::string& sql);
/// One step that must give a row or finish.
void Step(sqlite3* db, sqlite3_stmt* stmt);
/// Column `i` as text; "" for Null.
std::string Text(sqlite3_stmt* s, int i);

/// A list box that only keeps its items' texts and data.
class VectorList : public IListControl {
 public:
  bool IsListBox() const override { return true; }
  void Clear() override { items_.clear(); }
  void AddItem(const std::string& text, int32_t index = -1) override;
  int32_t NewIndex() const override { return new_index_; }
  int32_t ItemData(int32_t index) const override { return items_[index].data; }
  void SetItemData(int32_t index, int32_t value) override { items_[index].data = value; }
  Variant ItemTag(int32_t) const override { return Variant(); }
  void SetItemTag(int32_t, const Variant&) override {}
  int32_t ListCount() const override { return static_cast<int32_t>(items_.size()); }
  int32_t ListIndex() const override { return -1; }
  void SetListIndex(int32_t) override {}
  bool Selected(int32_t) const override { return false; }
  void SetSelected(int32_t, bool) override {}
  void RemoveItem(int32_t index) override { items_.erase(items_.begin() + index); }
  void Refresh() override {}
  void SetFontBold(bool) override {}

 private:
  struct Item {
    std::string text;
    int32_t data;
  };
  std::vector<Item> items_;
  int32_t new_index_ = -1;
};

/// Runs `work`. Kept out of line so that an instruction count can be taken
/// of the measured work alone, free of the machine's load:
///   valgrind --tool=callgrind --collect-atstart=no --toggle-collect='*Measured*'
///     <bench> --benchmark_filter=... --benchmark_min_time=0.01
template <class Work>
[[gnu::noinline]] void Measured(Work&& work) {
  work();
}

}  // namespace ringbook::bench
