#pragma once
// A job type: a hierarchical list of the kinds of jobs a company does.
#include "brenvale/model/HierarchicalRecord.hpp"

namespace brenvale {

class JobType : public HierarchicalRecord {
 public:
  JobType();
  static const RecordSchema& StaticSchema();
};

}  // namespace brenvale
