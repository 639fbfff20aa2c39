#pragma once
// The typed face of a list collection: records come back as T.
#include <memory>

#include "brenvale/model/ListCollectionBase.hpp"

namespace brenvale {

template <class T>
class ListCollection : public ListCollectionBase {
 public:
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
  std::shared_ptr<RecordCore> MakeRecord(std::string_view retName) override { return MakeRecordFor<T>(retName); }
  // For the derived collection's Add(...): a new record, filed, returned for filling.
  T& AddNew(std::shared_ptr<T> record) { return static_cast<T&>(AddNewRecord(std::move(record))); }
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
