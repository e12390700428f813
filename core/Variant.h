#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <variant>

#include "core/Error.h"
#include "core/Export.h"
#include "core/Object.h"

namespace ringbook {

/// The Automation type tags (VARTYPE codes) of the kinds a `Variant` holds.
/// `CStream::WriteVar` writes them in front of each value.
enum class VarType : uint16_t {
  Empty = 0,
  Null = 1,
  Integer = 2,   // VT_I2
  Long = 3,      // VT_I4
  Single = 4,    // VT_R4
  Double = 5,    // VT_R8
  Date = 7,      // VT_DATE
  String = 8,    // VT_BSTR
  Object = 9,    // VT_DISPATCH
  Boolean = 11,  // VT_BOOL
  Byte = 17,     // VT_UI1
};

/// A value of any type, with the conversions of the original runtime: text
/// to number fails with type mismatch (13), Null to anything but text fails
/// with invalid use of Null (94), Empty reads as 0 or "", and narrowing past
/// a type's range fails with overflow (6). Numbers convert to integers with
/// the runtime's round-half-to-even.
class RINGBOOK_EXPORT Variant {
 public:
  /// Empty.
  Variant() = default;
  Variant(bool v) : value_(v) {}
  Variant(uint8_t v) : value_(v) {}
  Variant(int16_t v) : value_(v) {}
  Variant(int32_t v) : value_(v) {}
  Variant(float v) : value_(v) {}
  Variant(double v) : value_(v) {}
  Variant(std::string v) : value_(std::move(v)) {}
  Variant(const char* v) : value_(std::string(v)) {}
  Variant(std::shared_ptr<Object> v) : value_(std::move(v)) {}
  template <class T, class = std::enable_if_t<std::is_base_of_v<Object, T>>>
  Variant(std::shared_ptr<T> v) : value_(std::shared_ptr<Object>(std::move(v))) {}

  static Variant Null() {
    Variant v;
    v.value_ = NullTag{};
    return v;
  }
  /// A Date: days since 30 December 1899, the fraction being the time of day.
  static Variant FromDate(double days) {
    Variant v;
    v.value_ = DateTag{days};
    return v;
  }

  VarType Type() const noexcept;
  bool IsEmpty() const noexcept { return Type() == VarType::Empty; }
  bool IsNull() const noexcept { return Type() == VarType::Null; }
  bool IsString() const noexcept { return Type() == VarType::String; }
  bool IsObject() const noexcept { return Type() == VarType::Object; }
  /// True for the numeric kinds, Boolean and Date.
  bool IsNumeric() const noexcept;

  bool ToBool() const;
  uint8_t ToByte() const;
  int16_t ToInteger() const;
  int32_t ToLong() const;
  float ToSingle() const;
  double ToDouble() const;
  /// The value as a date (day number); text must be a number.
  double ToDate() const;
  /// The value as text: numbers in plain decimal, Booleans as "True"/"False",
  /// dates in the short form of `FormatDateTime`. Null fails with 94.
  std::string ToString() const;
  /// The value joined to the empty text, as `value & ""`: Null and Empty give "".
  std::string ToText() const;
  /// The object held; nullptr for a Nothing reference. Anything that is not
  /// an object fails with type mismatch.
  std::shared_ptr<Object> ToObject() const;
  /// The object held, as class T; type mismatch when it is another class or
  /// not an object. A Nothing reference gives nullptr.
  template <class T>
  std::shared_ptr<T> As() const {
    std::shared_ptr<Object> obj = ToObject();
    if (!obj) return nullptr;
    auto typed = std::dynamic_pointer_cast<T>(obj);
    if (!typed) throw Error::TypeMismatch();
    return typed;
  }

  /// Same kind and same value (objects by identity).
  bool operator==(const Variant& other) const;

 private:
  struct NullTag {
    bool operator==(const NullTag&) const = default;
  };
  struct DateTag {
    double days;
    bool operator==(const DateTag&) const = default;
  };
  std::variant<std::monostate, NullTag, bool, uint8_t, int16_t, int32_t, float, double, DateTag,
               std::string, std::shared_ptr<Object>>
      value_;
};

/// Plain decimal text of a number, as the runtime prints it: no trailing
/// zeros, up to 7 significant digits for a Single and 15 for a Double.
RINGBOOK_EXPORT std::string NumberText(double value, int significant_digits = 15);

/// Parses a whole text as a number, allowing surrounding blanks, a sign, a
/// decimal point, an exponent and the "&H"/"&O" prefixes. Type mismatch when
/// the text is not a number (the empty text included).
RINGBOOK_EXPORT double ParseNumber(std::string_view text);

/// The runtime's rounding to a whole number: half to even.
RINGBOOK_EXPORT double RoundHalfEven(double value);

}  // namespace ringbook
