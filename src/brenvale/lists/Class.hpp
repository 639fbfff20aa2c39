#pragma once
// A class: a hierarchical list of the classes transactions are tracked by.
#include "brenvale/model/ListRecord.hpp"

namespace brenvale {

class Class : public HierarchicalRecord {
 public:
  Class() : HierarchicalRecord(Declaration()) {}
  static const RecordDecl& Declaration();
};

}  // namespace brenvale
