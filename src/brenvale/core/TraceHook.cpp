#include "brenvale/core/TraceHook.hpp"

#include <string>

#include "brenvale/core/ThreadState.hpp"

namespace brenvale {
namespace {
TraceObserver& Observer() {
  return detail::ThreadState::Current().Get<TraceObserver>(detail::StateSlot::TraceObserver);
}
}  // namespace

TraceObserver SetTraceObserver(TraceObserver observer) {
  std::swap(observer, Observer());
  return observer;
}

namespace detail {
bool TraceObserved() { return static_cast<bool>(Observer()); }

void Trace(std::string_view source, std::string_view text) {
  if (const TraceObserver& observer = Observer()) observer(source, text);
}

void TraceUnknownField(std::string_view source, std::string_view elementName) {
  const TraceObserver& observer = Observer();
  if (!observer) return;
  std::string text = "Unknown Field: ";
  text += elementName;
  observer(source, text);
}
}  // namespace detail

}  // namespace brenvale
