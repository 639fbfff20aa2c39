#include "brenvale/model/WriteContext.hpp"

#include "brenvale/qbxml/Session.hpp"

namespace brenvale {

WriteContext WriteContext::OfSession(Form form) {
  const Session& s = CurrentSession();
  WriteContext c;
  c.form = form;
  c.versionNumber = s.qbXMLVersionNumber;
  c.versionText = s.qbxmlVersion;
  c.country = s.country;
  c.online = s.isOnline;
  return c;
}

}  // namespace brenvale
