#pragma once
// Every piece of the library's per-thread state lives in one object per thread. Each layer keeps its
// object in a slot of its own; the slots are destroyed from the top layer down, so that an object
// still finds what it uses while it goes: the connection ends its session while the session's values
// are still there, and the master collections leave the index of lists before the index goes.
#include <array>
#include <cstddef>
#include <memory>

namespace brenvale::detail {

// The slots, from the bottom layer to the top one; destroyed in the reverse order.
enum class StateSlot : std::size_t {
  Enumerations,   // core: the enumeration catalogues
  TraceObserver,  // core: the trace hook's observer
  Session,        // qbxml: the session values
  Lists,          // model: the index of master collections
  References,     // model: the reference cache
  DataExtDefs,    // model: the data-extension definitions known to the session
  Collections,    // company: the master collections
  Connection,     // company: the library-wide connection
  Count,
};

class ThreadState {
 public:
  // This thread's state.
  static ThreadState& Current();

  ThreadState() = default;
  ~ThreadState();
  ThreadState(const ThreadState&) = delete;
  ThreadState& operator=(const ThreadState&) = delete;

  // The object of a slot, created on first use. Each slot is used by one accessor, with one type.
  template <class T>
  T& Get(StateSlot slot) {
    auto& held = slots_[static_cast<std::size_t>(slot)];
    if (!held) held = std::make_unique<Held<T>>();
    return static_cast<Held<T>&>(*held).value;
  }
  // The object of a slot, or null when it was never created.
  template <class T>
  T* Find(StateSlot slot) {
    auto& held = slots_[static_cast<std::size_t>(slot)];
    return held ? &static_cast<Held<T>&>(*held).value : nullptr;
  }

 private:
  struct Holder {
    virtual ~Holder() = default;
  };
  template <class T>
  struct Held final : Holder {
    T value;
  };

  std::array<std::unique_ptr<Holder>, static_cast<std::size_t>(StateSlot::Count)> slots_;
};

}  // namespace brenvale::detail
