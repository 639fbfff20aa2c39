#pragma once
// Standard terms: due a number of days after the transaction's date, with an optional discount for
// paying within fewer days.
#include "brenvale/lists/zkTerm.hpp"

namespace brenvale {

class StandardTerm : public zkTerm {
 public:
  StandardTerm() : zkTerm(Declaration()) {}
  static const RecordDecl& Declaration();

  // The days and the discount are set when the terms are added (1002 afterwards).
  Integer StdDueDays() const;
  void StdDueDays(Integer value);
  Integer StdDiscountDays() const;
  void StdDiscountDays(Integer value);
  Currency DiscountPct() const;
  void DiscountPct(Currency value);

  bool IsDateDriven() const override { return false; }
  // PostDate plus StdDueDays days.
  Date CalculateDueDate(Date PostDate) const override;
  // PostDate plus StdDiscountDays days; the null date when StdDiscountDays is 0.
  Date CalculateDiscountDate(Date PostDate) const override;
  Currency DiscountPercent() const override { return DiscountPct(); }
};

}  // namespace brenvale
