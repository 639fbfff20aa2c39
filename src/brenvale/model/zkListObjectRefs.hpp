#pragma once
// A keyed list of references (keyed by full name), such as a record's children.
#include <string>
#include <string_view>

#include "brenvale/core/KeyedList.hpp"
#include "brenvale/model/zkListObjectRef.hpp"

namespace brenvale {

class zkListObjectRefs {
 public:
  zkListObjectRef& Add(std::string FullName, zqEnumListType ListType, std::string ListID = {});
  bool ItemExists(std::string_view key) const { return refs_.Exists(key); }
  bool ItemExists(std::size_t position) const { return refs_.ExistsAt(position); }
  zkListObjectRef& Item(std::string_view key) { return refs_.Get(key); }
  zkListObjectRef& Item(std::size_t position) { return refs_.At(position); }
  zkListObjectRef& operator[](std::string_view key) { return Item(key); }
  zkListObjectRef& operator[](std::size_t position) { return Item(position); }
  void Clear() { refs_.Clear(); }
  zkListObject* Object(std::string_view key) { return Item(key).Object(); }
  std::int32_t Count() const { return static_cast<std::int32_t>(refs_.Count()); }
  void Remove(std::string_view key) { refs_.Remove(key); }
  void Remove(std::size_t position) { refs_.RemoveAt(position); }
  auto begin() { return refs_.begin(); }
  auto end() { return refs_.end(); }
  auto begin() const { return refs_.begin(); }
  auto end() const { return refs_.end(); }

 private:
  KeyedList<zkListObjectRef> refs_;
};

}  // namespace brenvale
