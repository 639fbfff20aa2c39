#pragma once
#include "brenvale/lists/CustomerType.hpp"
#include "brenvale/model/ListCollection.hpp"

namespace brenvale {

class CustomerTypes : public HierarchicalCollection<CustomerType> {
 public:
  using HierarchicalCollection::HierarchicalCollection;
};

}  // namespace brenvale
