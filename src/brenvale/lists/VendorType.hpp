#pragma once
// A vendor type: a hierarchical list of the kinds of vendors a company deals with.
#include "brenvale/model/HierarchicalRecord.hpp"

namespace brenvale {

class VendorType : public HierarchicalRecord {
 public:
  VendorType();
  static const RecordSchema& StaticSchema();
};

}  // namespace brenvale
