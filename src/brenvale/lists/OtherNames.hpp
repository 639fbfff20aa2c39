#pragma once
#include "brenvale/lists/OtherName.hpp"
#include "brenvale/lists/detail/NamedCollection.hpp"

namespace brenvale {

// Other names, keyed by name. Add takes the name and the active flag.
class OtherNames : public detail::NamedCollection<OtherName> {
 public:
  using NamedCollection::NamedCollection;
};

}  // namespace brenvale
