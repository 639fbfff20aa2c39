#pragma once
// A tax code of the editions that keep tax codes apart from sales tax codes (Canada, the UK): its
// description, and the rates and exemptions QuickBooks reports for it. Its requests are
// "TaxCodeQueryRq" and "TaxCodeAddRq"; the qbXML of US editions has neither, so with a US company
// the library refuses them itself (1005) rather than sending a document QuickBooks would refuse.
#include <string>
#include <string_view>

#include "brenvale/model/ListRecord.hpp"

namespace brenvale {

class TaxCode : public ListRecord {
 public:
  TaxCode() : ListRecord(Declaration()) {}
  static const RecordDecl& Declaration();

  std::string Desc() const;
  void Desc(std::string_view value);
  bool IsPiggybackRate() const;
  double Tax1Rate() const;
  double Tax2Rate() const;
  bool IsTax1Exempt() const;
  bool IsTax2Exempt() const;
};

}  // namespace brenvale
