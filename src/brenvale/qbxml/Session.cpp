#include "brenvale/qbxml/Session.hpp"

namespace brenvale {

Session& CurrentSession() {
  thread_local Session session;
  return session;
}

Currency VersionNumberOf(const std::string& versionText) {
  std::string_view v = versionText;
  while (!v.empty() && !(v.front() >= '0' && v.front() <= '9') && v.front() != '.') v.remove_prefix(1);
  return Currency::Parse(v).value_or(Currency());
}

}  // namespace brenvale
