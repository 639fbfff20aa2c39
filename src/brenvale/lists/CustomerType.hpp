#pragma once
// A customer type: a hierarchical list of the kinds of customers.
#include "brenvale/model/ListRecord.hpp"

namespace brenvale {

class CustomerType : public HierarchicalRecord {
 public:
  CustomerType() : HierarchicalRecord(Declaration()) {}
  static const RecordDecl& Declaration();
};

}  // namespace brenvale
