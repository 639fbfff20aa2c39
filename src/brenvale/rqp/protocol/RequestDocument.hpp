#pragma once
// Reading a request document as QuickBooks does: its bytes decoded as its XML declaration says,
// the DOCTYPE skipped (senders write it with a public identifier only), and the qbXML version it
// asks for (by the DOCTYPE or a <?qbxml version?> instruction) one the host supports.
#include <string>
#include <string_view>

#include <pugixml.hpp>

#include "brenvale/rqp/HostFacts.hpp"

namespace brenvale::rqp::detail {

// A qbXML version as a number of tenths ("13.0" is 130, "2.1" is 21, "CA3.0" is 30); -1 for text
// that is none.
int ParseVersion(std::string_view text);
// The text of a version in tenths: 130 -> "13.0".
std::string VersionText(int tenths);

class RequestDocument {
 public:
  // Throws ProcessError (0x80040400) when the text is not a well-formed qbXML document.
  RequestDocument(std::string_view text, const HostFacts& facts);

  // The message set: the one element inside <QBXML>.
  pugi::xml_node Messages() const { return messages_; }
  // The version the document asked for, in tenths; the host's newest when it names none.
  int Version() const { return version_; }

 private:
  std::string buffer_;
  pugi::xml_document doc_;
  pugi::xml_node messages_;
  int version_ = 0;
};

}  // namespace brenvale::rqp::detail
