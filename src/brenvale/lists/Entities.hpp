#pragma once
#include "brenvale/lists/Customer.hpp"
#include "brenvale/lists/Employee.hpp"
#include "brenvale/lists/OtherName.hpp"
#include "brenvale/lists/Vendor.hpp"
#include "brenvale/model/ListCollection.hpp"

namespace brenvale {

// Every name list at once: one entity query answers customers and their jobs, vendors, employees and
// other names, each read into a record of its own kind and filed by full name. Names are added
// through the collection of their own kind; a delete names the record's own kind.
class Entities : public ListCollection<Entity, Customer, Vendor, Employee, OtherName> {
 public:
  using ListCollection::ListCollection;
};

}  // namespace brenvale
