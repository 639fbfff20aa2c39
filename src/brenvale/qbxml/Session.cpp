#include "brenvale/qbxml/Session.hpp"

#include "brenvale/core/ThreadState.hpp"

namespace brenvale {

Session& CurrentSession() { return detail::ThreadState::Current().Get<Session>(detail::StateSlot::Session); }

Currency VersionNumberOf(const std::string& versionText) {
  std::string_view v = versionText;
  while (!v.empty() && !(v.front() >= '0' && v.front() <= '9') && v.front() != '.') v.remove_prefix(1);
  return Currency::Parse(v).value_or(Currency());
}

}  // namespace brenvale
