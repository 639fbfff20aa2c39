#pragma once
// A list record with a parent: its full name is the parent's full name, ":" and its own name.
#include "brenvale/model/ListRecord.hpp"

namespace brenvale {

class HierarchicalRecord : public ListRecord {
 public:
  using ListRecord::ListRecord;
  using ListRecord::Parent;
  // Sets the parent by its full name (empty: top level).
  void Parent(std::string fullName) { SetRefName(kParentRef, std::move(fullName)); }
  const zkListObjectRef& ParentRef() const { return Ref(kParentRef); }
};

}  // namespace brenvale
