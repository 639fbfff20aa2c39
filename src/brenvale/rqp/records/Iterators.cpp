#include "brenvale/rqp/records/Iterators.hpp"

#include "brenvale/rqp/protocol/Guid.hpp"

namespace brenvale::rqp::detail {

void Iterators::Lapse(std::int64_t now) {
  open_.remove_if([&](const Entry& e) { return now - e.lastUsed > kIdleSeconds; });
}

std::string Iterators::Open(OpenIterator it, std::int64_t now) {
  Lapse(now);
  while (open_.size() >= kMaxOpen) open_.pop_back();
  open_.push_front(Entry{NewGuid(), now, std::move(it)});
  return open_.front().id;
}

OpenIterator* Iterators::Find(std::string_view id, std::string_view requestName, std::int64_t now) {
  Lapse(now);
  for (auto e = open_.begin(); e != open_.end(); ++e) {
    if (e->id != id) continue;
    if (e->it.requestName != requestName) return nullptr;
    e->lastUsed = now;
    open_.splice(open_.begin(), open_, e);
    return &open_.front().it;
  }
  return nullptr;
}

void Iterators::Close(std::string_view id) {
  open_.remove_if([&](const Entry& e) { return e.id == id; });
}

}  // namespace brenvale::rqp::detail
