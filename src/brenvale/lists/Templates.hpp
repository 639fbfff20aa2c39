#pragma once
#include "brenvale/lists/Template.hpp"
#include "brenvale/model/ListCollection.hpp"

namespace brenvale {

// Read only: filled by the queries; there is nothing to add.
class Templates : public ListCollection<Template> {
 public:
  using ListCollection::ListCollection;
};

}  // namespace brenvale
