#pragma once
#include "brenvale/lists/Customer.hpp"
#include "brenvale/model/ListCollection.hpp"

namespace brenvale {

// Customers and their jobs, keyed by full name. Add takes the name, the active flag and, for a job,
// its customer's full name; the rest is set on the record it returns.
class Customers : public HierarchicalCollection<Customer> {
 public:
  using HierarchicalCollection::HierarchicalCollection;
};

}  // namespace brenvale
