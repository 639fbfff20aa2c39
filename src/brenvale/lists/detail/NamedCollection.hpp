#pragma once
// A collection of a flat simple list whose Add takes a name and the active flag.
#include <memory>
#include <string_view>

#include "brenvale/model/ListCollection.hpp"

namespace brenvale::detail {

template <class T>
class NamedCollection : public ListCollection<T> {
 public:
  using ListCollection<T>::ListCollection;

  T& Add(std::string_view Name = {}, bool IsActive = true) {
    auto record = std::make_shared<T>();
    record->Name(Name);
    record->IsActive(IsActive);
    return this->AddNew(std::move(record));
  }
};

}  // namespace brenvale::detail
