#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "core/Enums.h"
#include "core/Error.h"
#include "core/Export.h"
#include "core/HostServices.h"
#include "core/IListControl.h"
#include "core/Object.h"
#include "core/Variant.h"
#include "store/Database.h"
#include "store/IRecords.h"
#include "store/QueryDef.h"
#include "store/Recordset.h"

namespace ringbook {

/// How a collection converts a column's value when it reads a record: the
/// value is joined to the empty text first, so a Null text reads as "" and
/// a Null number fails with type mismatch (13).
RINGBOOK_EXPORT std::string ColumnText(const Variant& value);
RINGBOOK_EXPORT int16_t ColumnInteger(const Variant& value);
RINGBOOK_EXPORT int32_t ColumnLong(const Variant& value);

/// Row tests of the list filters, compared as the runtime compares a number
/// column with a number: a Null column matches nothing.
RINGBOOK_EXPORT bool FieldEquals(Recordset& rows, const std::string& field, double value);
/// The column is at most `limit`; a Null on either side matches nothing and
/// a `limit` that is not a number fails with type mismatch.
RINGBOOK_EXPORT bool FieldAtMost(Recordset& rows, const std::string& field, const Variant& limit);

/// One column of a collection's query as its record class holds it.
template <class Record>
struct RecordColumn {
  std::string Name;
  /// Sets the record's property from the column's value.
  std::function<void(Record&, const Variant&)> Read;
  /// The property's value to write; empty for the key, which is never
  /// written.
  std::function<Variant(const Record&)> Write;
  /// The part of the record the column belongs to, for collections that
  /// write one part at a time (0 where records are written whole). A column
  /// that is written but not read has an empty `Read`.
  int32_t Section = 0;
};

template <class Record>
RecordColumn<Record> TextField(std::string name, const std::string& (Record::*get)() const,
                               void (Record::*set)(const std::string&)) {
  return {std::move(name), [set](Record& r, const Variant& v) { (r.*set)(ColumnText(v)); },
          [get](const Record& r) { return Variant((r.*get)()); }};
}

template <class Record>
RecordColumn<Record> Int16Field(std::string name, int16_t (Record::*get)() const,
                                void (Record::*set)(int16_t)) {
  return {std::move(name), [set](Record& r, const Variant& v) { (r.*set)(ColumnInteger(v)); },
          [get](const Record& r) { return Variant((r.*get)()); }};
}

template <class Record>
RecordColumn<Record> Int32Field(std::string name, int32_t (Record::*get)() const,
                                void (Record::*set)(int32_t)) {
  return {std::move(name), [set](Record& r, const Variant& v) { (r.*set)(ColumnLong(v)); },
          [get](const Record& r) { return Variant((r.*get)()); }};
}

/// The key column: read into the record through `SetID`, never written.
template <class Record>
RecordColumn<Record> KeyField(std::string name) {
  return {std::move(name), [](Record& r, const Variant& v) { r.SetID(ColumnLong(v)); }, nullptr};
}

/// Which controls a collection can be bound to.
enum class BoundControl {
  /// The host's standard list box only; anything else is a type mismatch.
  ListBox,
  /// Any control that offers the list members.
  AnyControl,
};

/// What sets one collection apart: everything else about it is the common
/// protocol of `RecordCollection`.
template <class Record>
struct CollectionDescription {
  std::string Query;              // the stored query, e.g. "qryLocations"
  std::string KeyColumn;          // e.g. "LocationID"
  std::string CriterionPrefix;    // e.g. "LocationID = "
  std::string MissingRowMessage;  // shown by UpdateRecord when the row is gone
  BoundControl Control = BoundControl::ListBox;
  std::string ListTextColumn;  // what FillList shows, e.g. "Arena"
  /// The columns read into a record, in reading order; the non-key ones are
  /// also written, in the same order.
  std::vector<RecordColumn<Record>> Columns;
  /// Whether a row is counted for the list position of `record` (the rows
  /// the list shows, such as the rows of the record's era); empty: every row.
  std::function<bool(Recordset& rows, const Record& record)> CountsForPosition;
};

/// The protocol that every database-backed collection follows, written
/// once: opening the database and the collection's stored query, reading
/// and writing records, and keeping one bound list control in step with
/// every add, update and remove. A collection derives from it with its own
/// class as `Derived` and a `CollectionDescription`, and adds its filters
/// and list texts.
///
/// No member catches anything: a failure of the database, the list control
/// or a conversion reaches the caller as an `Error`, and the operation stops
/// where it failed. The one condition reported otherwise is the missing row
/// of `UpdateRecord`.
template <class Derived, class Record>
class RINGBOOK_EXPORT RecordCollection : public Object {
 public:
  ~RecordCollection() override {
    try {
      if (recordset_) recordset_->Close();
      if (database_) database_->Close();
    } catch (...) {
      // Closing releases memory only; nothing is left to report to.
    }
  }
  RecordCollection(const RecordCollection&) = delete;
  RecordCollection& operator=(const RecordCollection&) = delete;

  /// Adds a row from `record`, gives the record the row's new key through
  /// `SetID` and, when a list is bound, inserts its `Name` at its place in
  /// the query's order (selected when `Selected`). Returns `record` itself.
  std::shared_ptr<Record> AddRecord(std::shared_ptr<Record> record, bool Selected = true) {
    Recordset& rows = *recordset_;
    rows.AddNew();
    pvtWriteFields(record.get());
    rows.Update();
    rows.SetBookmark(rows.LastModified());
    record->SetID(rows.Field(description_.KeyColumn).ToLong());
    rows.Requery();
    Self().pvtUpdateList(updListAdd, *record, Selected);
    return record;
  }

  /// Keeps `ListControl`'s control as the bound list, replacing any earlier
  /// one (Nothing unbinds). Type mismatch for anything that is not a list
  /// control, and for a control that is not a list box where the collection
  /// binds list boxes only.
  void BindTo(const Variant& ListControl) {
    std::shared_ptr<IListControl> control = ListControl.As<IListControl>();
    if (control && description_.Control == BoundControl::ListBox && !control->IsListBox()) {
      throw Error::TypeMismatch();
    }
    list_ = std::move(control);
  }

  /// The record of the row found by `ID`. The find is deliberately not
  /// checked: for an unknown ID the record is read from whatever row is
  /// current.
  std::shared_ptr<Record> Item(int32_t ID) {
    recordset_->FindFirst(Criterion(ID));
    return pvtReadRecord();
  }

  /// Updates the row of `record`'s own ID (the `ID` argument is ignored),
  /// selecting it in the bound list.
  void SetItem(int32_t ID, std::shared_ptr<Record> record) {
    (void)ID;
    UpdateRecord(std::move(record), true);
  }

  /// Reads and deletes the row found by `ID` and removes its list item,
  /// selecting the item that takes its place when `NextSelected`. The find
  /// is deliberately not checked: an unknown ID acts on the current row.
  /// Always returns false, whatever happened.
  bool RemoveRecord(int32_t ID, bool NextSelected = true) {
    Recordset& rows = *recordset_;
    rows.FindFirst(Criterion(ID));
    std::shared_ptr<Record> record = pvtReadRecord();
    rows.Delete();
    Self().pvtUpdateList(updListRemove, *record, NextSelected);
    return false;
  }

  /// Writes `record` into the row of its ID and moves its list item to its
  /// new place. When the row is missing, shows the collection's message
  /// and returns nullptr, writing nothing.
  std::shared_ptr<Record> UpdateRecord(std::shared_ptr<Record> record, bool Selected = true) {
    if (!record) throw Error::ObjectNotSet();
    Recordset& rows = *recordset_;
    rows.FindFirst(Criterion(record->ID()));
    if (rows.NoMatch()) {
      ShowMessage(description_.MissingRowMessage);
      return nullptr;
    }
    rows.Edit();
    pvtWriteFields(record.get());
    rows.Update();
    rows.Requery();
    Self().pvtUpdateList(updListUpdate, *record, Selected);
    return record;
  }

  /// The collection through the component's common interface; it lives as
  /// long as the collection.
  IRecords& Records() { return records_; }

 protected:
  /// Opens the database that the thread's settings name, and the
  /// collection's stored query in it. Fails with the database's error.
  explicit RecordCollection(const CollectionDescription<Record>& description)
      : description_(description), records_(*this) {
    database_ = Database::Open(Settings().DatabasePath());
    std::shared_ptr<QueryDef> query = database_->QueryDefs(description_.Query);
    recordset_ = query->OpenRecordset();
    query->Close();
  }

  Recordset& Rows() { return *recordset_; }
  const std::shared_ptr<IListControl>& BoundList() const { return list_; }
  /// The collection's own connection, for the further queries and tables a
  /// collection opens beside its stored query.
  const std::shared_ptr<Database>& DatabaseConnection() const { return database_; }

  /// The find criterion of the row whose key is `ID`.
  std::string Criterion(int32_t ID) const {
    return description_.CriterionPrefix + std::to_string(ID);
  }

  /// A new record from the current row, column by column.
  std::shared_ptr<Record> pvtReadRecord() {
    auto record = std::make_shared<Record>();
    for (const RecordColumn<Record>& column : description_.Columns) {
      if (column.Read) column.Read(*record, recordset_->Field(column.Name));
    }
    return record;
  }

  /// Copies the record's fields into the pending add or edit.
  void pvtWriteFields(const Record* record) {
    pvtWriteFieldsWhere(record, [](int32_t) { return true; });
  }

  /// Copies the fields of the columns whose `Section` `writes` accepts into
  /// the pending add or edit, in the columns' order.
  template <class Writes>
  void pvtWriteFieldsWhere(const Record* record, Writes writes) {
    if (!record) throw Error::ObjectNotSet();
    for (const RecordColumn<Record>& column : description_.Columns) {
      if (column.Write && writes(column.Section)) {
        recordset_->SetField(column.Name, column.Write(*record));
      }
    }
  }

  /// Makes the bound list follow one change of `record`. Add, update and
  /// remove call it through the derived class, so a collection whose list
  /// follows changes in its own way declares its own `pvtUpdateList` (and
  /// befriends this class); it can hand the kinds it treats alike back here.
  void pvtUpdateList(EUpdateListbox kind, const Record& record, bool select) {
    if (!list_) return;
    IListControl& list = *list_;
    switch (kind) {
      case updListClear:
        list.Clear();
        return;
      case updListRemove: {
        const int32_t count = list.ListCount();
        for (int32_t i = 0; i < count; ++i) {
          if (list.ItemData(i) != record.ID()) continue;
          list.RemoveItem(i);
          list.Refresh();
          const int32_t left = list.ListCount();
          if (select && left > 0) list.SetSelected(i < left ? i : left - 1, true);
          return;
        }
        return;
      }
      case updListAdd:
      case updListUpdate: {
        // The item's place: the rows the list shows, counted in the query's
        // order from the first (the recordset was just requeried) up to and
        // including the record's own row.
        Recordset& rows = *recordset_;
        int32_t count = 0;
        while (!rows.Eof()) {
          if (!description_.CountsForPosition || description_.CountsForPosition(rows, record)) {
            ++count;
          }
          if (FieldEquals(rows, description_.KeyColumn, record.ID())) break;
          rows.MoveNext();
        }
        if (kind == updListUpdate) {
          const int32_t items = list.ListCount();
          for (int32_t i = 0; i < items; ++i) {
            if (list.ItemData(i) == record.ID()) {
              list.RemoveItem(i);
              break;
            }
          }
        }
        list.AddItem(record.Name(), count - 1);
        list.SetItemData(list.NewIndex(), record.ID());
        list.SetListIndex(list.NewIndex());
        if (select) list.SetSelected(list.NewIndex(), true);
        // Exactly the new item stays selected in a multi-select list.
        for (int32_t i = 0; i < list.ListCount(); ++i) {
          if (list.Selected(i) && i != list.ListIndex()) list.SetSelected(i, false);
        }
        return;
      }
      default:  // updListAddDefaults and unknown kinds change nothing
        return;
    }
  }

  /// FillList's common steps: binds `ListControl` when it holds a control,
  /// then, when a list is bound, clears it and adds the text column of each
  /// row that `shows` accepts, with the row's key as its `ItemData`.
  template <class Shows>
  void FillListWhere(const Variant& ListControl, Shows shows) {
    if (!BindForFill(ListControl)) return;
    IListControl& list = *list_;
    list.Clear();
    Recordset& rows = *recordset_;
    if (rows.RecordCount() > 0) {
      rows.MoveFirst();
      while (!rows.Eof()) {
        if (shows(rows)) {
          list.AddItem(ColumnText(rows.Field(description_.ListTextColumn)));
          list.SetItemData(list.NewIndex(), rows.Field(description_.KeyColumn).ToLong());
        }
        rows.MoveNext();
      }
    }
    list.Refresh();
  }

  /// FillList's first step: binds `ListControl` when it holds a control (a
  /// Nothing reference or no value leaves the binding as it is). False when
  /// no list is bound, and the fill then does nothing more.
  bool BindForFill(const Variant& ListControl) {
    if (ListControl.IsObject() && ListControl.ToObject()) BindTo(ListControl);
    return list_ != nullptr;
  }

  /// The Get…List texts: `line` appends one row's line, for every row of
  /// the whole query from the first. An empty query gives "".
  template <class Line>
  std::string ListText(Line line) {
    std::string text;
    Recordset& rows = *recordset_;
    if (rows.RecordCount() > 0) {
      rows.MoveFirst();
      while (!rows.Eof()) {
        line(text, rows);
        rows.MoveNext();
      }
    }
    return text;
  }

 private:
  // The collection's `IRecords`: casts and forwards to the typed members.
  class RecordsAdapter final : public IRecords {
   public:
    explicit RecordsAdapter(RecordCollection& owner) : owner_(owner) {}

    Variant AddRecord(const Variant& record, bool Selected) override {
      return Variant(Self().AddRecord(record.As<Record>(), Selected));
    }
    void BindTo(const Variant& ListControl) override { Self().BindTo(ListControl); }
    void FillList(const Variant& ListControl, int16_t Filter) override {
      Derived& self = Self();
      if constexpr (requires { self.FillList(ListControl, Filter); }) {
        self.FillList(ListControl, Filter);
      } else {
        (void)Filter;
        self.FillList(ListControl);
      }
    }
    Variant Item(int32_t ID) override { return Variant(Self().Item(ID)); }
    void SetItem(int32_t ID, const Variant& record) override {
      Self().SetItem(ID, record.As<Record>());
    }
    bool RemoveRecord(int32_t ID, bool NextSelected) override {
      return Self().RemoveRecord(ID, NextSelected);
    }
    Variant UpdateRecord(const Variant& record, bool Selected) override {
      return Variant(Self().UpdateRecord(record.As<Record>(), Selected));
    }

   private:
    Derived& Self() { return static_cast<Derived&>(owner_); }
    RecordCollection& owner_;
  };

  Derived& Self() { return static_cast<Derived&>(*this); }

  const CollectionDescription<Record>& description_;
  std::shared_ptr<Database> database_;
  std::shared_ptr<Recordset> recordset_;
  std::shared_ptr<IListControl> list_;
  RecordsAdapter records_;
};

}  // namespace ringbook
