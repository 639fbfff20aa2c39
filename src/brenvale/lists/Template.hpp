#pragma once
// A form template (an invoice, estimate, sales order ... layout). QuickBooks only reports these;
// the library cannot add or modify them.
#include "brenvale/model/ListRecord.hpp"

namespace brenvale {

class Template : public ListRecord {
 public:
  Template();
  static const RecordSchema& StaticSchema();

  // The kind of form as qbXML names it ("Invoice", "SalesReceipt" ...).
  const std::string& TemplateType() const;
};

}  // namespace brenvale
