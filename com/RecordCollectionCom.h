#pragma once

#include <memory>

#include "Korvat_Ringbook.h"
#include "com/ComClass.h"
#include "com/ComObject.h"
#include "com/Convert.h"
#include "com/DispatchListControl.h"
#include "core/Variant.h"

namespace ringbook::com {

/// What every database-backed collection class shares: the members of its
/// default interface that all collections have (`AddRecord`, `BindTo`,
/// `Item`, `RemoveRecord`, `UpdateRecord`) and the whole of IRecords, which
/// forwards to the library collection's own IRecords. A collection's file
/// adds its `FillList` and its list text, and whatever else it has.
///
/// `Collection` is the library collection, `Record` its record class,
/// `Itf` the default interface and `RecordItf` the record's interface.
template <class Derived, class Collection, class Record, class Itf, class RecordItf>
class RecordCollectionCom : public ComObject<Derived, Collection, Itf, ::IRecords> {
 protected:
  using Base = ComObject<Derived, Collection, Itf, ::IRecords>;
  using Base::Call;
  using Base::native;

 public:
  using Base::Base;

  // ---- the default interface ----

  HRESULT STDMETHODCALLTYPE AddRecord(IDispatch* record, VARIANT_BOOL selected,
                                      RecordItf** out) override {
    if (!out) return E_POINTER;
    return Call(
        [&] { PutObject(out, native().AddRecord(Argument(record), selected != VARIANT_FALSE)); });
  }
  // Also IRecords.BindTo.
  HRESULT STDMETHODCALLTYPE BindTo(VARIANT control) override {
    return Call([&] { native().BindTo(ListControlArgument(control)); });
  }
  HRESULT STDMETHODCALLTYPE get_Item(LONG id, RecordItf** out) override {
    if (!out) return E_POINTER;
    return Call([&] { PutObject(out, native().Item(id)); });
  }
  HRESULT STDMETHODCALLTYPE put_Item(LONG id, IDispatch* record) override {
    return Call([&] { native().SetItem(id, Argument(record)); });
  }
  HRESULT STDMETHODCALLTYPE putref_Item(LONG id, IDispatch* record) override {
    return put_Item(id, record);
  }
  // Also IRecords.RemoveRecord.
  HRESULT STDMETHODCALLTYPE RemoveRecord(LONG id, VARIANT_BOOL next_selected,
                                         VARIANT_BOOL* out) override {
    return this->Get(out,
                     [&] { return native().RemoveRecord(id, next_selected != VARIANT_FALSE); });
  }
  HRESULT STDMETHODCALLTYPE UpdateRecord(IDispatch* record, VARIANT_BOOL selected,
                                         RecordItf** out) override {
    if (!out) return E_POINTER;
    return Call([&] {
      PutObject(out, native().UpdateRecord(Argument(record), selected != VARIANT_FALSE));
    });
  }

  // ---- IRecords: values of any type, cast by the library ----

  HRESULT STDMETHODCALLTYPE AddRecord(VARIANT record, VARIANT_BOOL selected,
                                      VARIANT* out) override {
    return this->Get(
        out, [&] { return native().Records().AddRecord(In(record), selected != VARIANT_FALSE); });
  }
  HRESULT STDMETHODCALLTYPE FillList(VARIANT control, short filter) override {
    return Call([&] { native().Records().FillList(ListControlArgument(control), filter); });
  }
  HRESULT STDMETHODCALLTYPE get_Item(LONG id, VARIANT* out) override {
    return this->Get(out, [&] { return native().Records().Item(id); });
  }
  HRESULT STDMETHODCALLTYPE put_Item(LONG id, VARIANT record) override {
    return Call([&] { native().Records().SetItem(id, In(record)); });
  }
  HRESULT STDMETHODCALLTYPE putref_Item(LONG id, VARIANT record) override {
    return put_Item(id, record);
  }
  HRESULT STDMETHODCALLTYPE UpdateRecord(VARIANT record, VARIANT_BOOL selected,
                                         VARIANT* out) override {
    return this->Get(out, [&] {
      return native().Records().UpdateRecord(In(record), selected != VARIANT_FALSE);
    });
  }

 protected:
  /// A record argument of this collection's class: type mismatch (13) for
  /// a record of another class, an empty reference for Nothing.
  static std::shared_ptr<Record> Argument(IDispatch* record) {
    return SharedArgument<Record>(record);
  }
};

}  // namespace ringbook::com
