#pragma once
// Payment terms, of either kind: what transactions ask of terms without knowing which kind they
// are. Its declaration describes the terms list itself (its query, label and facts), for the one
// collection that holds both kinds.
#include "brenvale/core/Currency.hpp"
#include "brenvale/core/Date.hpp"
#include "brenvale/model/ListRecord.hpp"

namespace brenvale {

class zkTerm : public ListRecord {
 public:
  static const RecordDecl& Declaration();

  virtual bool IsDateDriven() const = 0;
  // When an invoice or bill of that date falls due; the null date for a null date.
  virtual Date CalculateDueDate(Date PostDate) const = 0;
  // The last day the discount is taken; the null date when the terms give none.
  virtual Date CalculateDiscountDate(Date PostDate) const = 0;
  virtual Currency DiscountPercent() const = 0;

 protected:
  using ListRecord::ListRecord;
  // The date in `post`'s month with that day (a day beyond the month's end rolls into the next),
  // moved a month on while it is fewer than `nextMonthDays` days after `post` (twice at most).
  static Date DayOfMonthFrom(Date post, int day, int nextMonthDays);
};

}  // namespace brenvale
