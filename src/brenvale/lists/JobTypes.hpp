#pragma once
#include "brenvale/lists/JobType.hpp"
#include "brenvale/model/ListCollection.hpp"

namespace brenvale {

class JobTypes : public HierarchicalCollection<JobType> {
 public:
  using HierarchicalCollection::HierarchicalCollection;
};

}  // namespace brenvale
