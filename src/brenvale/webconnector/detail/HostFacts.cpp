#include "brenvale/webconnector/detail/HostFacts.hpp"

#include <pugixml.hpp>

#include <charconv>
#include <sstream>

namespace brenvale::webconnector::detail {
namespace {

constexpr std::string_view kFirstCallQueries[] = {"HostQuery", "CompanyQuery", "PreferencesQuery"};

// "13.0" -> 1300, "CA3.0" -> 300 (a country prefix is not part of the number); -1 when not a version.
int VersionRank(std::string_view text) {
  while (!text.empty() && (text.front() < '0' || text.front() > '9')) text.remove_prefix(1);
  int major = 0, minor = 0;
  auto [dot, e1] = std::from_chars(text.data(), text.data() + text.size(), major);
  if (e1 != std::errc() || dot == text.data() + text.size() || *dot != '.') return -1;
  auto [end, e2] = std::from_chars(dot + 1, text.data() + text.size(), minor);
  if (e2 != std::errc() || end != text.data() + text.size()) return -1;
  return major * 100 + minor;
}

pugi::xml_node Messages(pugi::xml_document& doc, std::string_view text, const char* name) {
  if (!doc.load_buffer(text.data(), text.size(), pugi::parse_default, pugi::encoding_utf8)) return {};
  return doc.child("QBXML").child(name);
}

}  // namespace

std::vector<std::string> SessionVersions(const CompanyFacts& facts) {
  const std::string pair = facts.majorVersion > 0
                               ? std::to_string(facts.majorVersion) + "." + std::to_string(facts.minorVersion)
                               : std::string();
  const int limit = pair.empty() ? 1 << 30 : VersionRank(pair);
  std::vector<std::string> versions;
  pugi::xml_document doc;
  pugi::xml_node host = Messages(doc, facts.hcpResponse, "QBXMLMsgsRs").child("HostQueryRs").child("HostRet");
  for (pugi::xml_node v : host.children("SupportedQBXMLVersion")) {
    const int rank = VersionRank(v.text().get());
    if (rank >= 0 && rank <= limit && (pair.empty() || rank != limit)) versions.emplace_back(v.text().get());
  }
  if (!pair.empty()) versions.push_back(pair);
  return versions;
}

std::optional<std::string> AnswerFromFirstCall(std::string_view request, std::string_view hcpResponse) {
  if (hcpResponse.empty()) return std::nullopt;
  pugi::xml_document rqDoc, hcpDoc;
  pugi::xml_node rqMsgs = Messages(rqDoc, request, "QBXMLMsgsRq");
  pugi::xml_node hcpMsgs = Messages(hcpDoc, hcpResponse, "QBXMLMsgsRs");
  if (!rqMsgs || !hcpMsgs) return std::nullopt;

  pugi::xml_document out;
  pugi::xml_node outMsgs = out.append_child("QBXML").append_child("QBXMLMsgsRs");
  bool any = false;
  for (pugi::xml_node rq : rqMsgs.children()) {
    if (rq.type() != pugi::node_element) continue;
    const std::string_view name = rq.name();
    bool known = false;
    for (std::string_view q : kFirstCallQueries) known = known || name == std::string(q) + "Rq";
    if (!known || rq.first_child()) return std::nullopt;  // filters or other requests: QuickBooks must answer
    for (pugi::xml_attribute a : rq.attributes())
      if (std::string_view(a.name()) != "requestID") return std::nullopt;
    const std::string rsName = std::string(name.substr(0, name.size() - 2)) + "Rs";
    pugi::xml_node rs = hcpMsgs.child(rsName.c_str());
    if (!rs) return std::nullopt;
    pugi::xml_node copy = outMsgs.append_copy(rs);
    copy.remove_attribute("requestID");
    if (pugi::xml_attribute id = rq.attribute("requestID"))
      copy.prepend_attribute("requestID") = id.value();
    any = true;
  }
  if (!any) return std::nullopt;
  std::ostringstream text;
  text << "<?xml version=\"1.0\" ?>\n";
  out.save(text, "", pugi::format_raw | pugi::format_no_declaration, pugi::encoding_utf8);
  return text.str();
}

std::string FirstCallRequest(std::string_view version) {
  std::string rq = "<?xml version=\"1.0\" encoding=\"utf-8\"?><?qbxml version=\"";
  rq += version;
  rq += "\"?><QBXML><QBXMLMsgsRq onError=\"continueOnError\">";
  int id = 0;
  for (std::string_view q : kFirstCallQueries)
    rq += "<" + std::string(q) + "Rq requestID=\"" + std::to_string(++id) + "\"/>";
  rq += "</QBXMLMsgsRq></QBXML>";
  return rq;
}

}  // namespace brenvale::webconnector::detail
