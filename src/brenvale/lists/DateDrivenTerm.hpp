#pragma once
// Date-driven terms: due on a day of the month, in the next month when the transaction comes
// fewer than DueNextMonthDays days before it.
#include "brenvale/lists/zkTerm.hpp"

namespace brenvale {

class DateDrivenTerm : public zkTerm {
 public:
  DateDrivenTerm() : zkTerm(Declaration()) {}
  static const RecordDecl& Declaration();

  // The days and the discount are set when the terms are added (1002 afterwards).
  Integer DayOfMonthDue() const;
  void DayOfMonthDue(Integer value);
  Integer DueNextMonthDays() const;
  void DueNextMonthDays(Integer value);
  // 0 while there is no discount.
  Integer DiscountDayOfMonth() const;
  void DiscountDayOfMonth(Integer value);
  Currency DiscountPct() const;
  void DiscountPct(Currency value);

  bool IsDateDriven() const override { return true; }
  // DayOfMonthDue of PostDate's month, or of the next (or the one after) while it comes fewer
  // than DueNextMonthDays days after PostDate.
  Date CalculateDueDate(Date PostDate) const override;
  // DiscountDayOfMonth by the same rule; the null date when the terms give no discount day.
  Date CalculateDiscountDate(Date PostDate) const override;
  Currency DiscountPercent() const override { return DiscountPct(); }

 private:
  // A day of the month is 1 to 31: the due day always, the discount day when given.
  void CheckDays(zkErrors& errors, ValidateContext& context);
  friend struct DateDrivenTermDecl;
};

}  // namespace brenvale
