#pragma once
// A tax code of the editions that keep tax codes apart from sales tax codes (Canada, the UK): its
// description, and the rates and exemptions QuickBooks reports for it. Its requests are
// "TaxCodeQueryRq" and "TaxCodeAddRq"; a company of an edition without the list answers them with an
// error status.
#include "brenvale/model/ListRecord.hpp"

namespace brenvale {

class TaxCode : public ListRecord {
 public:
  TaxCode();
  static const RecordSchema& StaticSchema();

  const std::string& Desc() const;
  void Desc(std::string value);
  bool IsPiggybackRate() const;
  double Tax1Rate() const;
  double Tax2Rate() const;
  bool IsTax1Exempt() const;
  bool IsTax2Exempt() const;
};

}  // namespace brenvale
