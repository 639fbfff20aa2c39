#pragma once
// The library's one trace hook. Readers hand it what they skip ("Unknown Field: " plus the element
// name, with their class label); the shipped library does nothing with it. A host or a test may
// observe it on its own thread.
#include <functional>
#include <string_view>

namespace brenvale {

using TraceObserver = std::function<void(std::string_view source, std::string_view text)>;

// Installs an observer for this thread (empty to remove); returns the previous one.
TraceObserver SetTraceObserver(TraceObserver observer);

namespace detail {
// Whether an observer is installed on this thread (readers skip building texts nobody sees).
bool TraceObserved();
void Trace(std::string_view source, std::string_view text);
// "Unknown Field: " + name, to the trace hook.
void TraceUnknownField(std::string_view source, std::string_view elementName);
}  // namespace detail

}  // namespace brenvale
