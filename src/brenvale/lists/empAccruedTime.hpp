#pragma once
// An employee's sick or vacation time: hours available, how they accrue, the most that may be kept.
// Hours are qbXML time intervals ("PT40H0M").
#include <string>
#include <string_view>

#include "brenvale/model/RecordCore.hpp"

namespace brenvale {

class empAccruedTime : public RecordCore {
 public:
  empAccruedTime() : RecordCore(Declaration()) {}
  static const RecordDecl& Declaration();

  std::string HoursAvailable() const;
  void HoursAvailable(std::string_view value);
  qbEnumPayrollAccrualPeriod AccrualPeriod() const;
  void AccrualPeriod(qbEnumPayrollAccrualPeriod value);
  std::string HoursAccrued() const;
  void HoursAccrued(std::string_view value);
  std::string MaximumHours() const;
  void MaximumHours(std::string_view value);
  bool IsResettingHoursEachNewYear() const;
  void IsResettingHoursEachNewYear(bool value);
  std::string HoursUsed() const;
  void HoursUsed(std::string_view value);
  Date AccrualStartDate() const;
  void AccrualStartDate(Date value);
};

}  // namespace brenvale
