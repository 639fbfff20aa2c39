#include "brenvale/rqp/detail/Document.hpp"

#include <algorithm>

#include "brenvale/rqp/detail/Company.hpp"
#include "brenvale/rqp/detail/Text.hpp"

namespace brenvale::rqp::detail {
namespace {

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
  if (i >= text.size())
    throw ProcessError{hresult::kParseError, ParseFailureText("The DOCTYPE declaration is not closed.")};
  for (std::size_t j = start; j <= i; ++j)
    if (text[j] != '\n') text[j] = ' ';
  return publicId;
}

// "-//INTUIT//DTD QBXML QBD 13.0//EN" -> "13.0".
std::string VersionOfPublicId(std::string_view id) {
  auto parts = Split(id, '/');
  for (auto p : parts) {
    auto words = Split(Trim(p), ' ');
    if (words.size() >= 3 && words[0] == "DTD" && words[1] == "QBXML") return std::string(words.back());
  }
  return {};
}

}  // namespace

std::string ParseFailureText(const std::string& detail) {
  std::string text = "QuickBooks found an error when parsing the provided XML text stream.";
  if (!detail.empty()) text += " " + detail;
  return text;
}

RequestDocument::RequestDocument(std::string_view text, const HostFacts& facts) : buffer_(text) {
  version_ = VersionOfPublicId(BlankDoctype(buffer_));
  auto result = doc_.load_buffer_inplace(buffer_.data(), buffer_.size(), pugi::parse_default | pugi::parse_pi,
                                         pugi::encoding_utf8);
  if (!result)
    throw ProcessError{hresult::kParseError, ParseFailureText(std::string(result.description()) + " at offset " +
                                                              std::to_string(result.offset) + ".")};
  for (auto n : doc_.children()) {
    if (n.type() == pugi::node_pi && std::string_view(n.name()) == "qbxml") {
      std::string_view v = n.value();
      auto p = v.find("version");
      auto q1 = v.find_first_of("\"'", p);
      if (p != std::string_view::npos && q1 != std::string_view::npos) {
        auto q2 = v.find(v[q1], q1 + 1);
        if (q2 != std::string_view::npos) version_ = std::string(v.substr(q1 + 1, q2 - q1 - 1));
      }
    }
  }
  if (!version_.empty() &&
      std::find(facts.SupportedVersions.begin(), facts.SupportedVersions.end(), version_) == facts.SupportedVersions.end())
    throw ProcessError{hresult::kParseError,
                       ParseFailureText("The version of QBXML that was requested (" + version_ +
                                        ") is not supported or is unknown.")};
  pugi::xml_node root = doc_.document_element();
  if (std::string_view(root.name()) != "QBXML")
    throw ProcessError{hresult::kParseError, ParseFailureText("The document element must be \"QBXML\".")};
  for (auto c : root.children()) {
    if (c.type() == pugi::node_element) {
      if (messages_)
        throw ProcessError{hresult::kParseError, ParseFailureText("\"QBXML\" holds more than one message set.")};
      messages_ = c;
    } else if ((c.type() == pugi::node_pcdata || c.type() == pugi::node_cdata) && !Trim(c.value()).empty()) {
      throw ProcessError{hresult::kParseError, ParseFailureText("Text is not allowed in \"QBXML\".")};
    }
  }
  if (!messages_) throw ProcessError{hresult::kParseError, ParseFailureText("\"QBXML\" holds no message set.")};
}

void CheckRequestAttributes(const Decl& decl, pugi::xml_node request) {
  for (auto a : request.attributes()) {
    std::string_view name = a.name();
    std::string_view value = Trim(a.value());
    auto fail = [&](const std::string& why) {
      throw ProcessError{hresult::kParseError, ParseFailureText(why)};
    };
    if (!decl.HasAttribute(name))
      fail("Attribute \"" + std::string(name) + "\" is not allowed in \"" + decl.name + "\".");
    if (name == "metaData" && value != "NoMetaData" && value != "MetaDataOnly" && value != "MetaDataAndResponseData")
      fail("Attribute \"metaData\" has the invalid value \"" + std::string(value) + "\".");
    if (name == "iterator" && value != "Start" && value != "Continue" && value != "Stop")
      fail("Attribute \"iterator\" has the invalid value \"" + std::string(value) + "\".");
  }
}

}  // namespace brenvale::rqp::detail
