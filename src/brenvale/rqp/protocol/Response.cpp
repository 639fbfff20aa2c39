#include "brenvale/rqp/protocol/Response.hpp"

#include "brenvale/rqp/protocol/Status.hpp"
#include "brenvale/rqp/protocol/Text.hpp"

namespace brenvale::rqp::detail {

bool CountOnly(const Request& rq) { return Trim(rq.node.attribute("metaData").value()) == "MetaDataOnly"; }

void Found(const Request& rq, Reply& reply, std::size_t total) {
  std::string_view metaData = Trim(rq.node.attribute("metaData").value());
  if (!metaData.empty() && metaData != "NoMetaData") reply.Attribute("retCount", std::to_string(total));
  if (total == 0 && reply.status == 0) {
    reply.status = 1;
    reply.message = kNoMatchText;
  }
}

void Reply::Attribute(std::string_view name, std::string_view value) {
  attributes += ' ';
  attributes += name;
  attributes += "=\"";
  AppendEscaped(attributes, value);
  attributes += '"';
}

ResponseWriter::ResponseWriter(std::string messages)
    : messages_(std::move(messages)), out_("<?xml version=\"1.0\" ?>\n<QBXML>\n<" + messages_ + ">\n") {}

void ResponseWriter::Add(pugi::xml_node request, int code, const std::string& message, const Reply& reply) {
  std::string_view name = request.name();
  std::string rsName(name.substr(0, name.size() - 2));
  rsName += "Rs";
  out_ += '<';
  out_ += rsName;
  if (auto id = request.attribute("requestID")) {
    out_ += " requestID=\"";
    AppendEscaped(out_, id.value());
    out_ += '"';
  }
  out_ += " statusCode=\"" + std::to_string(code) + "\" statusSeverity=\"" + Severity(code) + "\" statusMessage=\"";
  AppendEscaped(out_, message);
  out_ += '"';
  out_ += reply.attributes;
  if (reply.body.empty()) {
    out_ += " />\n";
    return;
  }
  out_ += ">\n";
  out_.reserve(out_.size() + reply.body.size() + 2 * rsName.size() + 64);
  out_ += reply.body;
  out_ += "</" + rsName + ">\n";
}

std::string ResponseWriter::Finish() {
  out_ += "</" + messages_ + ">\n</QBXML>\n";
  return std::move(out_);
}

}  // namespace brenvale::rqp::detail
