#pragma once
#include "brenvale/lists/Class.hpp"
#include "brenvale/model/ListCollection.hpp"

namespace brenvale {

class Classes : public HierarchicalCollection<Class> {
 public:
  using HierarchicalCollection::HierarchicalCollection;
};

}  // namespace brenvale
