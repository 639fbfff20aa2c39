#pragma once
// The typed face of a list collection: records come back as T.
#include <memory>

#include "brenvale/model/ListCollectionBase.hpp"

namespace brenvale {

template <class T>
class ListCollection : public ListCollectionBase {
 public:
  explicit ListCollection(bool master = false) : ListCollectionBase(T::StaticSchema(), master) {}

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
  std::shared_ptr<T> ItemPtr(std::size_t position) const {
    return std::static_pointer_cast<T>(RecordAt(position));
  }

  class iterator {
   public:
    iterator(ListCollection* c, std::size_t pos) : c_(c), pos_(pos) {}
    T& operator*() const { return c_->Item(pos_); }
    T* operator->() const { return &c_->Item(pos_); }
    iterator& operator++() {
      ++pos_;
      return *this;
    }
    bool operator!=(const iterator& o) const { return pos_ != o.pos_; }
    bool operator==(const iterator& o) const { return pos_ == o.pos_; }

   private:
    ListCollection* c_;
    std::size_t pos_;
  };
  iterator begin() { return iterator(this, 1); }
  iterator end() { return iterator(this, static_cast<std::size_t>(Count()) + 1); }

 protected:
  std::shared_ptr<ListRecord> MakeRecord(std::string_view retName) override {
    if (retName != T::StaticSchema().XmlName() + "Ret") return nullptr;
    return std::make_shared<T>();
  }
  // For the derived collection's Add(...): a new record, filed, returned for filling.
  T& AddNew(std::shared_ptr<T> record) { return static_cast<T&>(AddRecord(std::move(record))); }
};

}  // namespace brenvale
