#pragma once
// An ordered list whose entries may also be filed under a text key, as every collection of the
// library is: positions are 1-based, keys are compared without regard to (ASCII) case, lookups
// by key are hash lookups, and insertion order is kept.
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "brenvale/core/BrenvaleError.hpp"

namespace brenvale {

namespace detail {
std::string FoldKey(std::string_view key);
}

template <class T>
class KeyedList {
 public:
  struct Entry {
    std::string key;  // empty when filed without a key
    T value;
  };

  std::size_t Count() const { return entries_.size(); }
  bool Empty() const { return entries_.empty(); }

  // Appends `value`; with a non-empty key the key must be new. `before` (1-based) inserts ahead
  // of that position instead of appending.
  T& Add(T value, std::string_view key = {}, std::optional<std::size_t> before = std::nullopt) {
    std::string folded;
    if (!key.empty()) {
      folded = detail::FoldKey(key);
      if (index_.count(folded)) platform::Raise(platform::kDuplicateKey, "Brenvale");
    }
    std::size_t pos = entries_.size();
    if (before) {
      if (*before < 1 || *before > entries_.size()) platform::Raise(platform::kSubscriptOutOfRange, "Brenvale");
      pos = *before - 1;
    }
    entries_.insert(entries_.begin() + static_cast<std::ptrdiff_t>(pos), Entry{std::string(key), std::move(value)});
    if (pos + 1 != entries_.size()) Reindex(pos);
    if (!folded.empty()) index_.emplace(std::move(folded), pos);
    return entries_[pos].value;
  }

  bool Exists(std::string_view key) const { return Find(key) != nullptr; }
  bool ExistsAt(std::size_t position) const { return position >= 1 && position <= entries_.size(); }

  // By 1-based position; out of range raises "Subscript out of range".
  T& At(std::size_t position) {
    if (!ExistsAt(position)) platform::Raise(platform::kSubscriptOutOfRange, "Brenvale");
    return entries_[position - 1].value;
  }
  const T& At(std::size_t position) const { return const_cast<KeyedList*>(this)->At(position); }

  // By key; an unknown key raises "Invalid procedure call or argument".
  T& Get(std::string_view key) {
    T* v = Find(key);
    if (!v) platform::Raise(platform::kInvalidProcedureCall, "Brenvale");
    return *v;
  }
  const T& Get(std::string_view key) const { return const_cast<KeyedList*>(this)->Get(key); }

  T* Find(std::string_view key) {
    if (key.empty()) return nullptr;
    auto it = index_.find(detail::FoldKey(key));
    return it == index_.end() ? nullptr : &entries_[it->second].value;
  }
  const T* Find(std::string_view key) const { return const_cast<KeyedList*>(this)->Find(key); }

  // 1-based position of the entry filed under `key`, or 0.
  std::size_t PositionOf(std::string_view key) const {
    if (key.empty()) return 0;
    auto it = index_.find(detail::FoldKey(key));
    return it == index_.end() ? 0 : it->second + 1;
  }

  const std::string& KeyAt(std::size_t position) const {
    if (!ExistsAt(position)) platform::Raise(platform::kSubscriptOutOfRange, "Brenvale");
    return entries_[position - 1].key;
  }

  void RemoveAt(std::size_t position) {
    if (!ExistsAt(position)) platform::Raise(platform::kSubscriptOutOfRange, "Brenvale");
    std::size_t pos = position - 1;
    if (!entries_[pos].key.empty()) index_.erase(detail::FoldKey(entries_[pos].key));
    entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(pos));
    Reindex(pos);
  }
  void Remove(std::string_view key) {
    std::size_t pos = PositionOf(key);
    if (pos == 0) platform::Raise(platform::kInvalidProcedureCall, "Brenvale");
    RemoveAt(pos);
  }

  void Clear() {
    entries_.clear();
    index_.clear();
  }
  void Reserve(std::size_t n) {
    entries_.reserve(n);
    index_.reserve(n);
  }

  // Iteration over the values, in order.
  class iterator {
   public:
    using Base = typename std::vector<Entry>::iterator;
    using value_type = T;
    using difference_type = std::ptrdiff_t;
    iterator() = default;
    explicit iterator(Base b) : b_(b) {}
    T& operator*() const { return b_->value; }
    T* operator->() const { return &b_->value; }
    iterator& operator++() { ++b_; return *this; }
    iterator operator++(int) { auto t = *this; ++b_; return t; }
    bool operator==(const iterator& o) const { return b_ == o.b_; }
   private:
    Base b_;
  };
  class const_iterator {
   public:
    using Base = typename std::vector<Entry>::const_iterator;
    using value_type = T;
    using difference_type = std::ptrdiff_t;
    const_iterator() = default;
    explicit const_iterator(Base b) : b_(b) {}
    const T& operator*() const { return b_->value; }
    const T* operator->() const { return &b_->value; }
    const_iterator& operator++() { ++b_; return *this; }
    const_iterator operator++(int) { auto t = *this; ++b_; return t; }
    bool operator==(const const_iterator& o) const { return b_ == o.b_; }
   private:
    Base b_;
  };
  iterator begin() { return iterator(entries_.begin()); }
  iterator end() { return iterator(entries_.end()); }
  const_iterator begin() const { return const_iterator(entries_.begin()); }
  const_iterator end() const { return const_iterator(entries_.end()); }

 private:
  void Reindex(std::size_t from) {
    for (std::size_t i = from; i < entries_.size(); ++i)
      if (!entries_[i].key.empty()) index_[detail::FoldKey(entries_[i].key)] = i;
  }

  std::vector<Entry> entries_;
  std::unordered_map<std::string, std::size_t> index_;
};

}  // namespace brenvale
