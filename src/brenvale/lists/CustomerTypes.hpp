#pragma once
#include "brenvale/lists/CustomerType.hpp"
#include "brenvale/model/HierarchicalCollection.hpp"

namespace brenvale {

class CustomerTypes : public HierarchicalCollection<CustomerType> {
 public:
  using HierarchicalCollection::HierarchicalCollection;
};

}  // namespace brenvale
