#pragma once
// A class: a hierarchical list of the classes a company tracks income and expenses by.
#include "brenvale/model/HierarchicalRecord.hpp"

namespace brenvale {

class Class : public HierarchicalRecord {
 public:
  Class();
  static const RecordSchema& StaticSchema();
};

}  // namespace brenvale
