#pragma once
#include "brenvale/lists/Vendor.hpp"
#include "brenvale/lists/detail/NamedCollection.hpp"

namespace brenvale {

// Vendors, keyed by name. Add takes the name and the active flag.
class Vendors : public detail::NamedCollection<Vendor> {
 public:
  using NamedCollection::NamedCollection;
};

}  // namespace brenvale
