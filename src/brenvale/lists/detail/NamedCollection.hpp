#pragma once
// A collection of a flat simple list whose Add takes a name and the active flag.
#include <memory>
#include <string>

#include "brenvale/model/ListCollection.hpp"

namespace brenvale::detail {

template <class T>
class NamedCollection : public ListCollection<T> {
 public:
  using ListCollection<T>::ListCollection;

  T& Add(std::string Name = {}, bool IsActive = true) {
    auto record = std::make_shared<T>();
    record->Name(std::move(Name));
    record->IsActive(IsActive);
    return this->AddNew(std::move(record));
  }
};

}  // namespace brenvale::detail
