#include "core/Variant.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "core/Error.h"

namespace ringbook {
namespace {

void ExpectRuntimeError(const std::function<void()>& f, int32_t number,
                        const std::string& description) {
  try {
    f();
    ADD_FAILURE() << "no error, expected " << number;
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), number);
    EXPECT_EQ(e.Description(), description);
    EXPECT_EQ(e.Source(), std::string(kComponentName));
  }
}

void ExpectMismatch(const std::function<void()>& f) {
  ExpectRuntimeError(f, 13, "Type mismatch");
}
void ExpectOverflow(const std::function<void()>& f) {
  ExpectRuntimeError(f, 6, "Overflow");
}

TEST(VariantTest, NumbersPrintInPlainDecimalUntilTheirDigitsRunOut) {
  EXPECT_EQ(Variant(0.1).ToString(), "0.1");
  EXPECT_EQ(Variant(2.5f).ToString(), "2.5");
  EXPECT_EQ(Variant(0.1f).ToString(), "0.1");  // 7 digits for a Single
  EXPECT_EQ(Variant(1.0 / 3).ToString(), "0.333333333333333");
  EXPECT_EQ(Variant(1.0f / 3).ToString(), "0.3333333");
  EXPECT_EQ(Variant(123456789012345.0).ToString(), "123456789012345");
  EXPECT_EQ(Variant(1e15).ToString(), "1E+15");
  EXPECT_EQ(Variant(-1.5e20).ToString(), "-1.5E+20");
  EXPECT_EQ(Variant(1234567.0f).ToString(), "1234567");
  EXPECT_EQ(Variant(12345678.0f).ToString(), "1.234568E+07");
  EXPECT_EQ(Variant(0.00001).ToString(), "0.00001");
  EXPECT_EQ(Variant(-0.000001).ToString(), "-1E-06");
  EXPECT_EQ(Variant(1.5e-7).ToString(), "1.5E-07");
  EXPECT_EQ(Variant(-0.0).ToString(), "0");
  EXPECT_EQ(Variant(-42.125).ToString(), "-42.125");
  EXPECT_EQ(Variant(int32_t{-2147483647 - 1}).ToString(), "-2147483648");
}

TEST(VariantTest, BooleansAreTrueFalseAndMinusOne) {
  EXPECT_EQ(Variant(true).ToString(), "True");
  EXPECT_EQ(Variant(false).ToString(), "False");
  EXPECT_EQ(Variant(true).ToInteger(), -1);
  EXPECT_EQ(Variant(true).ToDouble(), -1.0);
  EXPECT_EQ(Variant(false).ToLong(), 0);
  EXPECT_TRUE(Variant(" true ").ToBool());
  EXPECT_FALSE(Variant("FALSE").ToBool());
  EXPECT_FALSE(Variant("0").ToBool());
  EXPECT_TRUE(Variant(0.5).ToBool());
  ExpectMismatch([] { Variant("yes").ToBool(); });
}

TEST(VariantTest, TextBecomesANumberOrATypeMismatch) {
  EXPECT_EQ(Variant(" 42 ").ToLong(), 42);
  EXPECT_EQ(Variant("\t-2.5 ").ToDouble(), -2.5);
  EXPECT_EQ(Variant("1e3").ToInteger(), 1000);
  EXPECT_EQ(Variant("1.5D2").ToDouble(), 150.0);
  EXPECT_EQ(Variant(".5").ToDouble(), 0.5);
  EXPECT_EQ(Variant("&hff").ToLong(), 255);
  EXPECT_EQ(Variant("&HFFFF").ToLong(), -1);  // four hex digits read as 16 bits
  EXPECT_EQ(Variant("&H10000").ToLong(), 65536);
  EXPECT_EQ(Variant("&O17").ToLong(), 15);
  EXPECT_EQ(Variant("2.5").ToInteger(), 2);

  for (const char* bad : {"abc", "", "   ", "1e", "--1", "1 2", "&H", "&HXYZ", "12abc", "."}) {
    SCOPED_TRACE(bad);
    ExpectMismatch([bad] { Variant(bad).ToDouble(); });
  }
  ExpectOverflow([] { Variant("1e400").ToDouble(); });
}

TEST(VariantTest, NullAndEmpty) {
  const Variant null = Variant::Null();
  EXPECT_TRUE(null.IsNull());
  EXPECT_EQ(null.ToText(), "");
  ExpectRuntimeError([&] { null.ToLong(); }, 94, "Invalid use of Null");
  ExpectRuntimeError([&] { null.ToString(); }, 94, "Invalid use of Null");

  const Variant empty;
  EXPECT_TRUE(empty.IsEmpty());
  EXPECT_EQ(empty.ToLong(), 0);
  EXPECT_FALSE(empty.ToBool());
  EXPECT_EQ(empty.ToString(), "");
}

TEST(VariantTest, NarrowingPastTheRangeOverflows) {
  ExpectOverflow([] { Variant(int32_t{40000}).ToInteger(); });
  ExpectOverflow([] { Variant(int32_t{256}).ToByte(); });
  ExpectOverflow([] { Variant(int32_t{-1}).ToByte(); });
  ExpectOverflow([] { Variant(255.5).ToByte(); });  // rounds to 256
  ExpectOverflow([] { Variant(3e9).ToLong(); });
  ExpectOverflow([] { Variant(1e39).ToSingle(); });
  ExpectOverflow([] { Variant("32768").ToInteger(); });
  EXPECT_EQ(Variant(int32_t{-32768}).ToInteger(), -32768);
  EXPECT_EQ(Variant(255.4).ToByte(), 255);
  EXPECT_EQ(Variant(-0.5).ToByte(), 0);  // rounds to 0, which fits
}

TEST(VariantTest, WholeNumbersRoundHalfToEven) {
  EXPECT_EQ(Variant(2.5).ToInteger(), 2);
  EXPECT_EQ(Variant(3.5).ToInteger(), 4);
  EXPECT_EQ(Variant(-2.5).ToInteger(), -2);
  EXPECT_EQ(Variant(0.5f).ToLong(), 0);
  EXPECT_EQ(Variant(1.5).ToByte(), 2);
  EXPECT_EQ(Variant(2.4999).ToLong(), 2);
  EXPECT_EQ(Variant(-2.5001).ToLong(), -3);
  EXPECT_EQ(RoundHalfEven(4.5), 4.0);
  EXPECT_EQ(RoundHalfEven(-0.5), 0.0);
}

struct Fighter : Object {};
struct Judge : Object {};

TEST(VariantTest, KindsAndEquality) {
  EXPECT_TRUE(Variant::FromDate(1).IsNumeric());
  EXPECT_TRUE(Variant(true).IsNumeric());
  EXPECT_FALSE(Variant("1").IsNumeric());
  EXPECT_FALSE(Variant().IsNumeric());
  EXPECT_EQ(Variant::FromDate(1).Type(), VarType::Date);
  EXPECT_EQ(Variant(std::make_shared<Fighter>()).Type(), VarType::Object);
  // Same value, different kind: not equal.
  EXPECT_FALSE(Variant(int16_t{1}) == Variant(int32_t{1}));
  EXPECT_FALSE(Variant::FromDate(1) == Variant(1.0));
  EXPECT_TRUE(Variant("a") == Variant(std::string("a")));
  // Dates print as date and time.
  EXPECT_EQ(Variant::FromDate(36526).ToString(), "2000-01-01");
  EXPECT_EQ(Variant::FromDate(36526.5).ToString(), "2000-01-01 12:00:00");
}

TEST(VariantTest, ObjectsConvertOnlyToTheirOwnClass) {
  auto fighter = std::make_shared<Fighter>();
  const Variant v(fighter);
  EXPECT_EQ(v.As<Fighter>(), fighter);
  EXPECT_EQ(v.ToObject(), fighter);
  ExpectMismatch([&] { v.As<Judge>(); });
  ExpectMismatch([&] { v.ToString(); });
  ExpectMismatch([&] { v.ToLong(); });
  ExpectMismatch([] { Variant(int32_t{5}).As<Fighter>(); });
  ExpectMismatch([] { Variant().ToObject(); });
  EXPECT_EQ(Variant(std::shared_ptr<Fighter>()).As<Judge>(), nullptr);  // Nothing
  EXPECT_TRUE(Variant(fighter) == v);
  EXPECT_FALSE(Variant(std::make_shared<Fighter>()) == v);
}

}  // namespace
}  // namespace ringbook
