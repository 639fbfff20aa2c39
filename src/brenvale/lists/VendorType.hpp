#pragma once
// A vendor type: a hierarchical list of the kinds of vendors.
#include "brenvale/model/ListRecord.hpp"

namespace brenvale {

class VendorType : public HierarchicalRecord {
 public:
  VendorType() : HierarchicalRecord(Declaration()) {}
  static const RecordDecl& Declaration();
};

}  // namespace brenvale
