#pragma once
#include "brenvale/lists/CustomerMessage.hpp"
#include "brenvale/lists/detail/NamedCollection.hpp"

namespace brenvale {

class CustomerMessages : public detail::NamedCollection<CustomerMessage> {
 public:
  using NamedCollection::NamedCollection;
};

}  // namespace brenvale
