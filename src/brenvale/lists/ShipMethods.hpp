#pragma once
#include "brenvale/lists/ShipMethod.hpp"
#include "brenvale/lists/detail/NamedCollection.hpp"

namespace brenvale {

class ShipMethods : public detail::NamedCollection<ShipMethod> {
 public:
  using NamedCollection::NamedCollection;
};

}  // namespace brenvale
