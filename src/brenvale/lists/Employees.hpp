#pragma once
#include "brenvale/lists/Employee.hpp"
#include "brenvale/lists/detail/NamedCollection.hpp"

namespace brenvale {

// Employees, keyed by name. Add takes the name and the active flag.
class Employees : public detail::NamedCollection<Employee> {
 public:
  using NamedCollection::NamedCollection;
};

}  // namespace brenvale
