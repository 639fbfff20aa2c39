#pragma once
// Walks a sequence of owning pointers (a vector of unique_ptr) and yields what they point to, as
// `T` (a derived class of what is held, when the holder knows it).
#include <cstddef>
#include <iterator>

namespace brenvale::detail {

template <class Inner, class T>
class PointeeIterator {
 public:
  using iterator_category = std::forward_iterator_tag;
  using value_type = T;
  using difference_type = std::ptrdiff_t;
  using pointer = T*;
  using reference = T&;

  PointeeIterator() = default;
  explicit PointeeIterator(Inner it) : it_(it) {}
  T& operator*() const { return static_cast<T&>(**it_); }
  T* operator->() const { return &**this; }
  PointeeIterator& operator++() {
    ++it_;
    return *this;
  }
  PointeeIterator operator++(int) {
    PointeeIterator before = *this;
    ++it_;
    return before;
  }
  bool operator==(const PointeeIterator& o) const { return it_ == o.it_; }

 private:
  Inner it_{};
};

}  // namespace brenvale::detail
