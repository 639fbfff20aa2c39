#pragma once
// A job type: a hierarchical list of the kinds of jobs a company does.
#include "brenvale/model/ListRecord.hpp"

namespace brenvale {

class JobType : public HierarchicalRecord {
 public:
  JobType() : HierarchicalRecord(Declaration()) {}
  static const RecordDecl& Declaration();
};

}  // namespace brenvale
