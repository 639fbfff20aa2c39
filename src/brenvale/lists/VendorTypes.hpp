#pragma once
#include "brenvale/lists/VendorType.hpp"
#include "brenvale/model/ListCollection.hpp"

namespace brenvale {

class VendorTypes : public HierarchicalCollection<VendorType> {
 public:
  using HierarchicalCollection::HierarchicalCollection;
};

}  // namespace brenvale
