#pragma once
// The records a record owns in one of its fields: item lines, expense lines, applied-to lines,
// journal lines, deposit lines, the member lines of a group. Positions are 1-based; Add appends,
// or inserts ahead of `BeforeIndex`. Reading and writing go through the owner's declaration.
#include <cstddef>
#include <memory>
#include <vector>

#include "brenvale/core/detail/PointeeIterator.hpp"
#include "brenvale/core/zkErrors.hpp"
#include "brenvale/model/RecordCore.hpp"

namespace brenvale {

class ChildListBase {
 public:
  ChildListBase(const RecordDecl& form, RecordCore& owner) : form_(&form), owner_(&owner) {}
  ChildListBase(const ChildListBase&) = delete;
  ChildListBase& operator=(const ChildListBase&) = delete;

  // The declaration every child is made from (the line form of the owner's family).
  const RecordDecl& Form() const { return *form_; }
  RecordCore& Owner() const { return *owner_; }
  std::size_t Count() const { return children_.size(); }
  bool ItemExists(std::size_t position) const { return position >= 1 && position <= children_.size(); }
  // By 1-based position; out of range raises "Subscript out of range".
  RecordCore& At(std::size_t position) const;
  // A new child, appended, or inserted ahead of `beforeIndex` (1-based; 0 appends).
  RecordCore& AddNew(std::size_t beforeIndex = 0);
  void Remove(std::size_t position);
  void Clear();
  zkErrors& Errors();

  auto begin() const { return children_.begin(); }
  auto end() const { return children_.end(); }

 private:
  // A line added or taken away is a change of the owner.
  void Changed();

  const RecordDecl* form_;
  RecordCore* owner_;
  std::vector<std::unique_ptr<RecordCore>> children_;
  std::unique_ptr<zkErrors> errors_;
};

// The typed face of an owner's child list: children come back as T.
template <class T>
class ChildList {
 public:
  explicit ChildList(ChildListBase& list) : list_(&list) {}

  Long Count() const { return static_cast<Long>(list_->Count()); }
  bool ItemExists(std::size_t position) const { return list_->ItemExists(position); }
  T& Item(std::size_t position) const { return static_cast<T&>(list_->At(position)); }
  T& operator[](std::size_t position) const { return Item(position); }
  // A new child, appended or inserted ahead of `BeforeIndex` (1-based; 0 appends).
  T& Add(std::size_t BeforeIndex = 0) const { return static_cast<T&>(list_->AddNew(BeforeIndex)); }
  void Remove(std::size_t position) const { list_->Remove(position); }
  void Clear() const { list_->Clear(); }
  zkErrors& Errors() const { return list_->Errors(); }
  ChildListBase& Base() const { return *list_; }

  using iterator = detail::PointeeIterator<std::vector<std::unique_ptr<RecordCore>>::const_iterator, T>;
  iterator begin() const { return iterator(list_->begin()); }
  iterator end() const { return iterator(list_->end()); }

 private:
  ChildListBase* list_;
};

}  // namespace brenvale
