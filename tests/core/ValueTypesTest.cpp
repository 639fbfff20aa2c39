#include <gtest/gtest.h>

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/core/Currency.hpp"
#include "brenvale/core/Date.hpp"
#include "brenvale/core/KeyedList.hpp"
#include "brenvale/core/zkErrors.hpp"

using namespace brenvale;

TEST(Currency, ParsesAndFormatsExactly) {
  EXPECT_EQ(Currency::Parse("12.5")->Units(), 125000);
  EXPECT_EQ(Currency::Parse("-0.0001")->Units(), -1);
  EXPECT_EQ(Currency::Parse(".25")->ToString(2), "0.25");
  EXPECT_EQ(Currency::Parse("1.00005")->Units(), 10000);  // half to even: stays
  EXPECT_EQ(Currency::Parse("1.00015")->Units(), 10002);  // half to even: up
  EXPECT_EQ(Currency::Parse("1.000051")->Units(), 10001);
  EXPECT_FALSE(Currency::Parse("12a").has_value());
  EXPECT_FALSE(Currency::Parse("").has_value());
  EXPECT_FALSE(Currency::Parse("1.2.3").has_value());
  EXPECT_EQ(Currency::Parse("0.125")->ToString(2), "0.12");
  EXPECT_EQ(Currency::Parse("0.135")->ToString(2), "0.14");
  EXPECT_EQ(Currency::Parse("-2.5")->ToString(0), "-2");
  EXPECT_EQ(Currency::Parse("100.00")->ToShortString(), "100");
  Currency debits = *Currency::Parse("100.00"), credits = *Currency::Parse("99.99");
  EXPECT_NE(debits, credits);
  EXPECT_EQ((debits - credits).ToString(2), "0.01");
}

TEST(Date, RollsOverLikeDateSerial) {
  EXPECT_EQ(Date::Serial(1899, 12, 30).Value(), 0.0);
  EXPECT_EQ(Date::Serial(1900, 1, 1).Value(), 2.0);
  EXPECT_EQ(Date::Serial(2012, 5, 1).Value(), 41030.0);
  Date d = Date::Serial(2024, 13, 1);  // month 13 is January of the next year
  EXPECT_EQ(d.Year(), 2025);
  EXPECT_EQ(d.Month(), 1);
  d = Date::Serial(2024, 2, 31);  // 31 February rolls into March
  EXPECT_EQ(d.Month(), 3);
  EXPECT_EQ(d.Day(), 2);
  d = Date::Serial(2024, 3, 0);  // day 0: last day of February
  EXPECT_EQ(d.Day(), 29);
  d = Date::Serial(2024, 0, 15);
  EXPECT_EQ(d.Year(), 2023);
  EXPECT_EQ(d.Month(), 12);
  Date t = Date::FromParts(2012, 5, 1, 13, 45, 30);
  EXPECT_EQ(t.Hour(), 13);
  EXPECT_EQ(t.Minute(), 45);
  EXPECT_EQ(t.Second(), 30);
  EXPECT_EQ(t.DateOnly(), Date::Serial(2012, 5, 1));
  EXPECT_EQ(Date::Serial(2026, 11, 22).Weekday(), 1);  // a Sunday
  EXPECT_TRUE(Date().IsNull());
}

TEST(Errors, NumbersMessagesAndRaising) {
  EXPECT_EQ(ErrorNumber(1011), -2147220493);
  EXPECT_EQ(ErrorNumber(1999), -2147219505);
  EXPECT_EQ(ErrorNumber(1804), qErrorAccountRequired);
  EXPECT_EQ(ErrorMessage(1011), "Indicated object failed validation.  Check object's errors for details.");
  EXPECT_EQ(ErrorMessage(2017), "Tax item is in already included within the transaction lines");
  EXPECT_TRUE(ErrorMessage(1026).empty());
  try {
    Raise(1002, "JobType");
    FAIL();
  } catch (const BrenvaleError& e) {
    EXPECT_EQ(e.Number(), ErrorNumber(1002));
    EXPECT_EQ(e.Code(), 1002);
    EXPECT_EQ(e.Source(), "JobType");
    EXPECT_EQ(e.Description(), "Field cannot be modified");
  }
}

TEST(zkErrors, KeyedListBehaviour) {
  zkErrors errs;
  errs.AddCode(1012, "Name");
  errs.Add(ErrorNumber(1013), "Name", "Name cannot exceed 31 characters");
  EXPECT_EQ(errs.Count(), 2);
  EXPECT_EQ(errs.Item(1).Number(), ErrorNumber(1012));
  EXPECT_EQ(errs[2].Description(), "Name cannot exceed 31 characters");
  EXPECT_THROW(errs.Item("x"), BrenvaleError);
  EXPECT_THROW(errs.Item(3), BrenvaleError);
  zkError keyed(ErrorNumber(1010), "Parent", "Invalid parent specified");
  keyed.SetKey("Parent");
  EXPECT_EQ(errs.AddObject(keyed), 3);
  EXPECT_EQ(errs.Item("PARENT").Field(), "Parent");  // keys ignore case
  EXPECT_THROW(errs.AddObject(keyed), BrenvaleError);  // duplicate key
  errs.Remove(1);
  EXPECT_EQ(errs.Item(1).Number(), ErrorNumber(1013));
  EXPECT_EQ(errs.Item("parent").Number(), ErrorNumber(1010));  // index follows removal
  errs.Clear();
  EXPECT_EQ(errs.Count(), 0);
}

TEST(KeyedList, InsertBeforeKeepsKeysPointingRight) {
  KeyedList<int> l;
  l.Add(1, "a");
  l.Add(3, "c");
  l.Add(2, "b", 2);
  EXPECT_EQ(l.At(2), 2);
  EXPECT_EQ(l.Get("c"), 3);
  EXPECT_EQ(l.PositionOf("C"), 3u);
  l.Remove("a");
  EXPECT_EQ(l.Get("b"), 2);
  EXPECT_EQ(l.PositionOf("b"), 1u);
}
