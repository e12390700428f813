#include "store/RecordCollection.h"

namespace ringbook {

std::string ColumnText(const Variant& value) {
  return value.ToText();
}

int16_t ColumnInteger(const Variant& value) {
  return Variant(value.ToText()).ToInteger();
}

int32_t ColumnLong(const Variant& value) {
  return Variant(value.ToText()).ToLong();
}

bool FieldEquals(Recordset& rows, const std::string& field, double value) {
  const Variant v = rows.Field(field);
  return !v.IsNull() && v.ToDouble() == value;
}

bool FieldAtMost(Recordset& rows, const std::string& field, const Variant& limit) {
  const Variant v = rows.Field(field);
  if (v.IsNull() || limit.IsNull()) return false;
  return v.ToDouble() <= limit.ToDouble();
}

}  // namespace ringbook
