#pragma once

// A record's fields described once, as a table: the tool builds its command
// options, its tables and its JSON from the same description. A field reads
// and writes the record through its public getter and setter only, so every
// setter rule of the library applies.
#include <cstdint>
#include <functional>
#include <nlohmann/json.hpp>
#include <string>
#include <type_traits>
#include <vector>

#include "core/Variant.h"

namespace ringbook::cli {

using Json = nlohmann::ordered_json;

/// The value a field holds, which decides how text from the command line
/// and values from JSON are checked.
enum class FieldKind {
  Text,
  Int16,
  Int32,
  Float,
  Bool,
  Date,   // an Automation date: a number, or "yyyy-mm-dd[ hh:mm[:ss]]"
  Value,  // a value of any type: a number, a text or null
};

template <class Record>
struct Field {
  /// The property's name, as the library spells it ("FirstName").
  std::string name;
  FieldKind kind = FieldKind::Text;
  std::function<Json(const Record&)> get;
  /// Takes a value already checked by `CheckValue`; empty for a read-only
  /// figure.
  std::function<void(Record&, const Json&)> set;
  /// The part of the record the field belongs to, where a record is
  /// written by parts (the fighter's profile 1 and career 2); 0 otherwise.
  int section = 0;
  /// The record's key: shown and saved in files, never set by a command.
  bool key = false;
  /// Shown as a column of a list (every field is shown by `show`).
  bool listed = true;
};

/// The option of a field on the command line: "FirstName" is
/// "--first-name", "Kdr1" "--kdr1", "GroupID" "--group-id".
std::string OptionName(const std::string& field_name);

/// `text` from the command line as the JSON value of a field of `kind`;
/// fails with a message naming `what` when it is not such a value.
Json ParseValue(FieldKind kind, const std::string& text, const std::string& what);

/// `value` from a JSON document, checked and brought to its plain form
/// (dates as numbers); fails with a message naming `what`.
Json CheckValue(FieldKind kind, const Json& value, const std::string& what);

/// A float as JSON, by its shortest text, so 0.1f shows as 0.1 and reads
/// back as the same float.
Json FloatJson(float value);

/// A cell of one of the library's tab-separated texts: a whole number as a
/// number (so it aligns and reads as one in JSON), anything else as text.
Json WholeOrText(const std::string& text);

/// A JSON value as one cell of a table: texts as they are, numbers in
/// their shortest form, null as empty.
std::string CellText(const Json& value);

/// Sets every field of `record` named in `object` (a JSON object), the key
/// only when `with_key`; fails on a name that is not a field. Read-only
/// figures (as `ToJson` writes them) are skipped, and fields absent from
/// `object` keep their values.
template <class Record>
void SetFromJson(Record& record, const std::vector<Field<Record>>& fields, const Json& object,
                 const std::string& what, bool with_key);

/// Every field of `record` as a JSON object, in the table's order.
template <class Record>
Json ToJson(const Record& record, const std::vector<Field<Record>>& fields) {
  Json out = Json::object();
  for (const Field<Record>& f : fields) out[f.name] = f.get(record);
  return out;
}

// ---- Building the tables ----

namespace fields_impl {
template <class T>
struct SetterArg;
template <class R, class A>
struct SetterArg<void (R::*)(A)> {
  using type = std::decay_t<A>;
};

template <class T>
Json AsJson(const T& value) {
  if constexpr (std::is_same_v<T, float>) {
    return FloatJson(value);
  } else {
    return Json(value);
  }
}
}  // namespace fields_impl

/// A field read by `get` and written by `set`, member functions of the
/// record.
template <class Record, class Getter, class Setter>
Field<Record> MakeField(std::string name, FieldKind kind, Getter get, Setter set, int section = 0) {
  using Arg = typename fields_impl::SetterArg<Setter>::type;
  Field<Record> f;
  f.name = std::move(name);
  f.kind = kind;
  f.section = section;
  f.get = [get](const Record& r) { return fields_impl::AsJson((r.*get)()); };
  f.set = [set](Record& r, const Json& v) { (r.*set)(v.get<Arg>()); };
  return f;
}

/// A figure the record works out, shown but never set.
template <class Record, class Getter>
Field<Record> ReadOnlyField(std::string name, FieldKind kind, Getter get) {
  Field<Record> f;
  f.name = std::move(name);
  f.kind = kind;
  f.get = [get](const Record& r) { return fields_impl::AsJson((r.*get)()); };
  return f;
}

/// The record's key, through `ID` and the component's `SetID`.
template <class Record>
Field<Record> KeyField() {
  Field<Record> f = MakeField<Record>("ID", FieldKind::Int32, &Record::ID, &Record::SetID);
  f.key = true;
  return f;
}

template <class Record>
const Field<Record>* FindField(const std::vector<Field<Record>>& fields, const std::string& name) {
  for (const Field<Record>& f : fields) {
    if (f.name == name) return &f;
  }
  return nullptr;
}

}  // namespace ringbook::cli

#include "cli/Errors.h"

namespace ringbook::cli {

template <class Record>
void SetFromJson(Record& record, const std::vector<Field<Record>>& fields, const Json& object,
                 const std::string& what, bool with_key) {
  if (!object.is_object()) throw UsageError(what + " must be a JSON object");
  for (const auto& [name, value] : object.items()) {
    const Field<Record>* f = FindField(fields, name);
    if (!f) throw UsageError(what + ": unknown field \"" + name + "\"");
    if (!f->set || (f->key && !with_key)) continue;
    f->set(record, CheckValue(f->kind, value, what + "." + name));
  }
}

}  // namespace ringbook::cli
