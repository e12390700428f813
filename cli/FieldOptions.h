#pragma once

// Command options made from a record's field table: one "--first-name"
// style option per settable field, applied to a record through its setters.
#include <CLI/CLI.hpp>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "cli/Fields.h"

namespace ringbook::cli {

template <class Record>
class FieldOptions {
 public:
  /// Adds an option to `command` for every settable field of `fields` that
  /// is not the key, and whose section is one of `sections` (all sections
  /// when empty), under the group `group`.
  FieldOptions(CLI::App& command, const std::vector<Field<Record>>& fields,
               const std::string& group = "Fields", std::set<int> sections = {}) {
    for (const Field<Record>& f : fields) {
      if (!f.set || f.key) continue;
      if (!sections.empty() && !sections.contains(f.section)) continue;
      auto slot = std::make_unique<Slot>();
      slot->field = &f;
      slot->option = command.add_option(OptionName(f.name), slot->value, "Set " + f.name)
                         ->type_name(TypeName(f.kind))
                         ->group(group);
      slots_.push_back(std::move(slot));
    }
  }

  /// Whether any of the options was given.
  bool Any() const {
    for (const auto& s : slots_) {
      if (s->option->count() > 0) return true;
    }
    return false;
  }

  /// The sections of the fields given.
  std::set<int> Sections() const {
    std::set<int> out;
    for (const auto& s : slots_) {
      if (s->option->count() > 0) out.insert(s->field->section);
    }
    return out;
  }

  /// The values given, checked, as a JSON object keyed by field name.
  Json Values() const {
    Json out = Json::object();
    for (const auto& s : slots_) {
      if (s->option->count() == 0) continue;
      out[s->field->name] = ParseValue(s->field->kind, s->value, s->option->get_name());
    }
    return out;
  }

  /// Sets every field given on the command line, in the table's order.
  void Apply(Record& record) const {
    const Json values = Values();
    for (const auto& s : slots_) {
      if (values.contains(s->field->name)) s->field->set(record, values[s->field->name]);
    }
  }

 private:
  struct Slot {
    const Field<Record>* field = nullptr;
    CLI::Option* option = nullptr;
    std::string value;
  };

  static const char* TypeName(FieldKind kind) {
    switch (kind) {
      case FieldKind::Text:
        return "TEXT";
      case FieldKind::Int16:
      case FieldKind::Int32:
        return "INT";
      case FieldKind::Float:
        return "NUMBER";
      case FieldKind::Bool:
        return "BOOL";
      case FieldKind::Date:
        return "DATE";
      case FieldKind::Value:
        return "VALUE";
    }
    return "VALUE";
  }

  std::vector<std::unique_ptr<Slot>> slots_;
};

}  // namespace ringbook::cli
