#include "brenvale/core/ThreadState.hpp"

namespace brenvale::detail {

ThreadState& ThreadState::Current() {
  thread_local ThreadState state;
  return state;
}

ThreadState::~ThreadState() {
  // Top layer first. An object going may still ask for a lower slot (the connection for the
  // session), which is then still there; one that creates a slot anew is caught by the next round.
  for (bool any = true; any;) {
    any = false;
    for (std::size_t i = slots_.size(); i-- > 0;) {
      if (!slots_[i]) continue;
      std::unique_ptr<Holder> going = std::move(slots_[i]);
      going.reset();
      any = true;
    }
  }
}

}  // namespace brenvale::detail
