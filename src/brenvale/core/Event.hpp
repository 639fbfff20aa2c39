#pragma once
// An event a host can subscribe to: subscribers are called in the order they were added.
#include <functional>
#include <vector>

namespace brenvale {

template <class... Args>
class Event {
 public:
  using Handler = std::function<void(Args...)>;

  // Adds a subscriber; returns a token for Unsubscribe.
  std::size_t Subscribe(Handler h) {
    handlers_.push_back({++lastToken_, std::move(h)});
    return lastToken_;
  }
  void Unsubscribe(std::size_t token) {
    std::erase_if(handlers_, [token](const auto& e) { return e.first == token; });
  }
  void Raise(Args... args) const {
    auto copy = handlers_;  // a handler may unsubscribe itself
    for (auto& [token, h] : copy) h(args...);
  }
  bool Empty() const { return handlers_.empty(); }

 private:
  std::vector<std::pair<std::size_t, Handler>> handlers_;
  std::size_t lastToken_ = 0;
};

}  // namespace brenvale
