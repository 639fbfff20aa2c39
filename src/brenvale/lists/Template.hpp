#pragma once
// A form template (an invoice, estimate, sales order ... layout). QuickBooks only reports these;
// the library cannot add, modify or delete them, and their query takes no filter.
#include <string>

#include "brenvale/model/ListRecord.hpp"

namespace brenvale {

class Template : public ListRecord {
 public:
  Template() : ListRecord(Declaration()) {}
  static const RecordDecl& Declaration();

  // The kind of form as qbXML names it ("Invoice", "SalesReceipt" ...).
  std::string TemplateType() const;
};

}  // namespace brenvale
