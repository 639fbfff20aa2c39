#pragma once
// What the request handlers work with: the open company file, the host's facts, the clock of the
// request being answered, new identities, and the session's open iterators.
#include <cstdint>
#include <string>
#include <string_view>

#include "brenvale/rqp/HostFacts.hpp"
#include "brenvale/rqp/records/Iterators.hpp"
#include "brenvale/rqp/store/Store.hpp"

namespace brenvale::rqp::detail {

class Context {
 public:
  Context(Store& store, const HostFacts& facts, std::string path, bool singleUser);

  Store& Data() { return store_; }
  const HostFacts& Facts() const { return facts_; }
  const std::string& Path() const { return path_; }
  bool SingleUser() const { return singleUser_; }

  // The clock of the request being answered (seconds since 1970), and QuickBooks' forms of it.
  std::int64_t Now() const { return now_; }
  void Tick();
  std::string NowText() const;
  std::string TodayText() const;

  // A new ListID ("80000001-1700000000") and the EditSequence of something changed now.
  std::string NewListId();
  std::string NextEditSequence(std::string_view previous = {}) const;

  Iterators& OpenIterators() { return iterators_; }

 private:
  Store& store_;
  const HostFacts& facts_;
  std::string path_;
  bool singleUser_;
  std::int64_t now_ = 0;
  Iterators iterators_;
};

}  // namespace brenvale::rqp::detail
