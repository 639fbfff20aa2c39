#include "brenvale/core/TraceHook.hpp"

#include <string>

namespace brenvale {
namespace {
thread_local TraceObserver tObserver;
}

TraceObserver SetTraceObserver(TraceObserver observer) {
  std::swap(observer, tObserver);
  return observer;
}

namespace detail {
void Trace(std::string_view source, std::string_view text) {
  if (tObserver) tObserver(source, text);
}

void TraceUnknownField(std::string_view source, std::string_view elementName) {
  if (!tObserver) return;
  std::string text = "Unknown Field: ";
  text += elementName;
  tObserver(source, text);
}
}  // namespace detail

}  // namespace brenvale
