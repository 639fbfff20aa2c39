#pragma once
// Reading a request document as QuickBooks does: the DOCTYPE is skipped (senders write it with a
// public identifier only), the text is UTF-8 whatever the declaration says, and the qbXML version
// named by the DOCTYPE or a <?qbxml version?> instruction must be one the host supports.
#include <string>
#include <string_view>

#include <pugixml.hpp>

#include "brenvale/rqp/CompanyEngine.hpp"
#include "brenvale/rqp/detail/Declarations.hpp"

namespace brenvale::rqp::detail {

class RequestDocument {
 public:
  // Throws ProcessError (0x80040400) when the text is not a well-formed qbXML document.
  RequestDocument(std::string_view text, const HostFacts& facts);

  // The message set: the one element inside <QBXML>.
  pugi::xml_node Messages() const { return messages_; }
  // The version the document asked for ("13.0"), or empty.
  const std::string& Version() const { return version_; }

 private:
  std::string buffer_;
  pugi::xml_document doc_;
  pugi::xml_node messages_;
  std::string version_;
};

// The text of a parse failure: QuickBooks' sentence followed by what was wrong.
std::string ParseFailureText(const std::string& detail);

// Attributes of a request element: requestID everywhere, metaData / iterator / iteratorID where the
// declarations have them, with their values checked. Throws ProcessError for anything else.
void CheckRequestAttributes(const Decl& decl, pugi::xml_node request);

}  // namespace brenvale::rqp::detail
