#pragma once
// A customer type: a hierarchical list of the kinds of customers a company sells to.
#include "brenvale/model/HierarchicalRecord.hpp"

namespace brenvale {

class CustomerType : public HierarchicalRecord {
 public:
  CustomerType();
  static const RecordSchema& StaticSchema();
};

}  // namespace brenvale
