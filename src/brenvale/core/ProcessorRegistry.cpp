#include "brenvale/core/ProcessorRegistry.hpp"

#include <map>
#include <mutex>

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/core/KeyedList.hpp"

namespace brenvale {
namespace {

struct Registry {
  std::mutex mutex;
  std::map<std::string, std::pair<std::string, RequestProcessorFactory>> factories;  // folded -> (name, f)
};

Registry& TheRegistry() {
  static Registry r;
  return r;
}

}  // namespace

void RegisterRequestProcessor(std::string_view progId, RequestProcessorFactory factory) {
  auto& r = TheRegistry();
  std::lock_guard lock(r.mutex);
  r.factories[detail::FoldKey(progId)] = {std::string(progId), std::move(factory)};
}

void UnregisterRequestProcessor(std::string_view progId) {
  auto& r = TheRegistry();
  std::lock_guard lock(r.mutex);
  r.factories.erase(detail::FoldKey(progId));
}

bool IsRequestProcessorRegistered(std::string_view progId) {
  auto& r = TheRegistry();
  std::lock_guard lock(r.mutex);
  return r.factories.count(detail::FoldKey(progId)) != 0;
}

std::vector<std::string> RegisteredRequestProcessors() {
  auto& r = TheRegistry();
  std::lock_guard lock(r.mutex);
  std::vector<std::string> out;
  for (auto& [k, v] : r.factories) out.push_back(v.first);
  return out;
}

std::shared_ptr<IRequestProcessor> CreateRequestProcessor(std::string_view progId) {
  RequestProcessorFactory factory;
  {
    auto& r = TheRegistry();
    std::lock_guard lock(r.mutex);
    auto it = r.factories.find(detail::FoldKey(progId));
    if (it != r.factories.end()) factory = it->second.second;
  }
  if (!factory) {
    std::string why = "ActiveX component can't create object: '" + std::string(progId) + "'";
    if (detail::FoldKey(progId) == detail::FoldKey(kProgIdQBXMLRP2) ||
        detail::FoldKey(progId) == detail::FoldKey(kProgIdQBXMLRP))
      why += " is QuickBooks' COM request processor, which this system does not have";
    else
      why += " is not a registered request processor";
    platform::Raise(platform::kCannotCreateObject, progId, why);
  }
  auto processor = factory();
  if (!processor) platform::Raise(platform::kCannotCreateObject, progId);
  return processor;
}

}  // namespace brenvale
