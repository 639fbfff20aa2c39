#pragma once
// A request as the handlers see it, what they answer, and the response document written from it.
#include <cstddef>
#include <string>
#include <string_view>

#include <pugixml.hpp>

namespace brenvale::rqp::detail {

struct Request {
  pugi::xml_node node;    // the ...Rq element, checked against its declaration
  std::string_view name;  // "CustomerAddRq"
  int version = 130;      // the qbXML version the document asked for, in tenths
};

struct Reply {
  int status = 0;
  std::string message;     // the text of a status other than 0
  std::string attributes;  // written after the status attributes: ' retCount="3"'
  std::string body;        // the Ret elements

  // Adds an attribute written after the status attributes.
  void Attribute(std::string_view name, std::string_view value);
};

// Whether a query asks only for the count of what it finds (metaData="MetaDataOnly").
bool CountOnly(const Request& rq);
// What every query answers of what it found: its count when the query asks for it (retCount), and
// QuickBooks' status when it found nothing (unless it was refused otherwise).
void Found(const Request& rq, Reply& reply, std::size_t total);

// Writes a response document: the envelope around one response element per request.
class ResponseWriter {
 public:
  // `messages` is "QBXMLMsgsRs" or "QBXMLSubscriptionMsgsRs".
  explicit ResponseWriter(std::string messages);
  // The response to `request` (its name ending in "Rq") with the status `code` and `reply`.
  void Add(pugi::xml_node request, int code, const std::string& message, const Reply& reply = {});
  // The finished document.
  std::string Finish();

 private:
  std::string messages_;
  std::string out_;
};

}  // namespace brenvale::rqp::detail
