#pragma once
// The typed face of a list collection: records come back as T.
//
// A collection of several kinds (items of every type, both kinds of terms, every name list) names
// them after T, their common base: T::Declaration() then describes the list (its query request,
// label and facts), one query answers records of every kind, and each is read into a record of its
// own kind (ListCollection<zkItemBase, ItemService, ItemInventory, ...>).
#include <memory>
#include <tuple>
#include <type_traits>

#include "brenvale/model/ListCollectionBase.hpp"

namespace brenvale {

template <class T, class... Kinds>
class ListCollection : public ListCollectionBase {
  static_assert((std::is_base_of_v<T, Kinds> && ...), "the kinds of a collection derive from its record type");

 public:
  // The record kinds the collection holds: T alone, or each of its several kinds.
  using Members = std::conditional_t<sizeof...(Kinds) == 0, std::tuple<T>, std::tuple<Kinds...>>;

  explicit ListCollection(bool master = false) : ListCollectionBase(T::Declaration(), master) {}

  T& Item(std::string_view key) override { return static_cast<T&>(ListCollectionBase::Item(key)); }
  T& Item(std::size_t position) override { return static_cast<T&>(ListCollectionBase::Item(position)); }
  T& operator[](std::string_view key) { return Item(key); }
  T& operator[](std::size_t position) { return Item(position); }
  T* GetByFullName(const std::string& sFullName) override {
    return static_cast<T*>(ListCollectionBase::GetByFullName(sFullName));
  }
  T* GetByListID(const std::string& sListID) override {
    return static_cast<T*>(ListCollectionBase::GetByListID(sListID));
  }
  T* Find(std::string_view key) override { return static_cast<T*>(ListCollectionBase::Find(key)); }
  // Shared ownership of a record, for a host that keeps it beyond the collection.
  std::shared_ptr<T> ItemPtr(std::size_t position) const { return std::static_pointer_cast<T>(SharedAt(position)); }

  using iterator = PositionIterator<ListCollection, T>;
  iterator begin() { return iterator(this, 1); }
  iterator end() { return iterator(this, Size() + 1); }

 protected:
  std::shared_ptr<RecordCore> MakeRecord(std::string_view retName) override {
    if constexpr (sizeof...(Kinds) == 0) {
      return MakeRecordFor<T>(retName);
    } else {
      std::shared_ptr<RecordCore> made;
      ((made = made ? made : MakeRecordFor<Kinds>(retName)), ...);
      return made;
    }
  }
  bool SeveralKinds() const override { return sizeof...(Kinds) > 0; }
  // For the derived collection's Add(...): a new record, filed, returned for filling.
  template <class K>
  K& AddNew(std::shared_ptr<K> record) {
    return static_cast<K&>(AddNewRecord(std::move(record)));
  }
};

// A collection of a hierarchical simple list, whose Add takes a name, the active flag and the
// parent's full name.
template <class T>
class HierarchicalCollection : public ListCollection<T> {
 public:
  using ListCollection<T>::ListCollection;

  T& Add(std::string_view Name = {}, bool IsActive = true, std::string_view ParentFullName = {}) {
    auto record = std::make_shared<T>();
    record->Name(Name);
    record->IsActive(IsActive);
    if (!ParentFullName.empty()) record->Parent(ParentFullName);
    return this->AddNew(std::move(record));
  }
};

}  // namespace brenvale
