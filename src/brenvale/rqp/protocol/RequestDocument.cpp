#include "brenvale/rqp/protocol/RequestDocument.hpp"

#include <algorithm>

#include "brenvale/rqp/protocol/Encoding.hpp"
#include "brenvale/rqp/protocol/Status.hpp"
#include "brenvale/rqp/protocol/Text.hpp"

namespace brenvale::rqp::detail {
namespace {

[[noreturn]] void Refuse(const std::string& why) { throw ProcessError{hresult::kParseError, ParseFailureText(why)}; }

// Blanks out "<!DOCTYPE ...>" (keeping offsets) and returns its public identifier.
std::string BlankDoctype(std::string& text) {
  auto start = text.find("<!DOCTYPE");
  if (start == std::string::npos) return {};
  std::size_t i = start + 9;
  char quote = 0;
  int bracket = 0;
  std::string publicId;
  std::size_t idStart = std::string::npos;
  for (; i < text.size(); ++i) {
    char c = text[i];
    if (quote) {
      if (c == quote) {
        quote = 0;
        if (publicId.empty() && idStart != std::string::npos) publicId = text.substr(idStart, i - idStart);
      }
      continue;
    }
    if (c == '"' || c == '\'') {
      quote = c;
      idStart = i + 1;
    } else if (c == '[') {
      ++bracket;
    } else if (c == ']') {
      --bracket;
    } else if (c == '>' && bracket <= 0) {
      break;
    }
  }
  if (i >= text.size()) Refuse("The DOCTYPE declaration is not closed.");
  for (std::size_t j = start; j <= i; ++j)
    if (text[j] != '\n') text[j] = ' ';
  return publicId;
}

// "-//INTUIT//DTD QBXML QBD 13.0//EN" -> "13.0".
std::string VersionOfPublicId(std::string_view id) {
  for (auto p : Split(id, '/')) {
    auto words = Split(Trim(p), ' ');
    if (words.size() >= 3 && words[0] == "DTD" && words[1] == "QBXML") return std::string(words.back());
  }
  return {};
}

}  // namespace

int ParseVersion(std::string_view text) {
  if (text.starts_with("CA")) text.remove_prefix(2);  // the Canadian editions' "CA3.0"
  auto dot = text.find('.');
  if (dot == std::string_view::npos || dot == 0 || dot + 2 != text.size()) return -1;
  int whole = 0;
  for (char c : text.substr(0, dot)) {
    if (c < '0' || c > '9' || whole > 1000) return -1;
    whole = whole * 10 + (c - '0');
  }
  char tenth = text[dot + 1];
  if (tenth < '0' || tenth > '9') return -1;
  return whole * 10 + (tenth - '0');
}

std::string VersionText(int tenths) { return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10); }

RequestDocument::RequestDocument(std::string_view text, const HostFacts& facts) : buffer_(DecodeDocument(text)) {
  std::string asked = VersionOfPublicId(BlankDoctype(buffer_));
  auto result = doc_.load_buffer_inplace(buffer_.data(), buffer_.size(), pugi::parse_default | pugi::parse_pi,
                                         pugi::encoding_utf8);
  if (!result) Refuse(std::string(result.description()) + " at offset " + std::to_string(result.offset) + ".");
  for (auto n : doc_.children()) {
    if (n.type() != pugi::node_pi || std::string_view(n.name()) != "qbxml") continue;
    std::string_view v = n.value();
    auto p = v.find("version");
    auto q1 = v.find_first_of("\"'", p);
    if (p == std::string_view::npos || q1 == std::string_view::npos) continue;
    auto q2 = v.find(v[q1], q1 + 1);
    if (q2 != std::string_view::npos) asked = std::string(v.substr(q1 + 1, q2 - q1 - 1));
  }
  const auto& supported = facts.SupportedVersions;
  if (!asked.empty() && std::find(supported.begin(), supported.end(), asked) == supported.end())
    Refuse("The version of QBXML that was requested (" + asked + ") is not supported or is unknown.");
  version_ = ParseVersion(asked.empty() ? (supported.empty() ? std::string("13.0") : supported.back()) : asked);
  pugi::xml_node root = doc_.document_element();
  if (std::string_view(root.name()) != "QBXML") Refuse("The document element must be \"QBXML\".");
  for (auto c : root.children()) {
    if (c.type() == pugi::node_element) {
      if (messages_) Refuse("\"QBXML\" holds more than one message set.");
      messages_ = c;
    } else if ((c.type() == pugi::node_pcdata || c.type() == pugi::node_cdata) && !Trim(c.value()).empty()) {
      Refuse("Text is not allowed in \"QBXML\".");
    }
  }
  if (!messages_) Refuse("\"QBXML\" holds no message set.");
  // Values are what QuickBooks can store of them.
  struct ToStored : pugi::xml_tree_walker {
    bool for_each(pugi::xml_node& node) override {
      if (node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata) {
        std::string value = node.value();
        if (ToCodePage(value)) node.set_value(value.c_str());
      }
      return true;
    }
  } walker;
  messages_.traverse(walker);
}

}  // namespace brenvale::rqp::detail
