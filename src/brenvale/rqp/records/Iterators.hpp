#pragma once
// The queries a session left open with iterator="Start". QuickBooks lets an iterator lapse when it
// is not continued for a while, and keeps only so many open; so does the engine, so that a long
// session that starts iterators and never finishes them does not grow without bound.
#include <cstdint>
#include <list>
#include <string>
#include <string_view>
#include <vector>

namespace brenvale::rqp::detail {

struct OpenIterator {
  std::string requestName;
  std::vector<std::int64_t> rowIds;  // what is still to come
  std::vector<std::string> include;  // IncludeRetElement
  std::vector<std::string> owners;   // OwnerID
  int version = 0;                   // the qbXML version the iteration answers in
};

class Iterators {
 public:
  // Open at most this many; starting one more lets the least recently used lapse.
  static constexpr std::size_t kMaxOpen = 20;
  // An iterator not continued for this long lapses.
  static constexpr std::int64_t kIdleSeconds = 20 * 60;

  // Keeps `it` open under a new iterator ID, which it returns.
  std::string Open(OpenIterator it, std::int64_t now);
  // The open iterator `id` of request `requestName`; nullptr when there is none (never started,
  // finished, stopped, lapsed, or started by another kind of request).
  OpenIterator* Find(std::string_view id, std::string_view requestName, std::int64_t now);
  void Close(std::string_view id);
  std::size_t Count() const { return open_.size(); }

 private:
  struct Entry {
    std::string id;
    std::int64_t lastUsed = 0;
    OpenIterator it;
  };
  std::list<Entry> open_;  // most recently used first
  void Lapse(std::int64_t now);
};

}  // namespace brenvale::rqp::detail
