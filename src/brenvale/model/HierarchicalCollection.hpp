#pragma once
// A collection of a hierarchical simple list, whose Add takes a name, the active flag and the
// parent's full name.
#include "brenvale/model/ListCollection.hpp"

namespace brenvale {

template <class T>
class HierarchicalCollection : public ListCollection<T> {
 public:
  using ListCollection<T>::ListCollection;

  T& Add(std::string Name = {}, bool IsActive = true, std::string ParentFullName = {}) {
    auto record = std::make_shared<T>();
    record->Name(std::move(Name));
    record->IsActive(IsActive);
    if (!ParentFullName.empty()) record->Parent(std::move(ParentFullName));
    return this->AddNew(std::move(record));
  }
};

}  // namespace brenvale
