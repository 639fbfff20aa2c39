// The request builder's sending half: hands the finished document to the session's request
// processor, traces request and response, loads the response and reads the first status.
#include <charconv>
#include <exception>
#include <memory>

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/core/detail/Windows1252.hpp"
#include "brenvale/qbxml/Session.hpp"
#include "brenvale/qbxml/detail/BuilderTexts.hpp"
#include "brenvale/qbxml/detail/TextFile.hpp"
#include "brenvale/qbxml/xmlBldr.hpp"

namespace brenvale {
namespace {

constexpr int kParserErrorCode = 1999;
constexpr std::string_view kParserErrorText = "Microsoft XML 4.0 parser not installed.";

void RemoveAll(std::string& text, std::string_view what) {
  std::size_t pos = text.find(what);
  while (pos != std::string::npos) {
    text.erase(pos, what.size());
    pos = text.find(what, pos);
  }
}

// A trace line holds bodies only: the plain declaration and the fixed desktop DOCTYPEs go.
std::string TraceBody(std::string_view text) {
  std::string body(text);
  RemoveAll(body, detail::kPlainDeclaration);
  if (body.find("<!DOCTYPE") == std::string::npos) return body;
  std::string doctype;
  for (std::string_view version : detail::kTracedDoctypeVersions) {
    doctype.assign(detail::kDoctypeHead);
    doctype += version;
    doctype += detail::kDoctypeTail;
    RemoveAll(body, doctype);
  }
  return body;
}

void AppendLine(const std::string& path, std::string_view text) {
  std::string line;
  line.reserve(text.size() + 1);
  line += text;
  line += '\n';
  detail::WriteFileBytes(path, line, true);  // failures while tracing are ignored
}

// Removes the online edition's DOCTYPE (whatever its system identifier) from a response.
void RemoveOnlineDoctype(std::string& response) {
  std::size_t start = response.find("<!DOCTYPE");
  while (start != std::string::npos) {
    std::size_t end = response.find('>', start);
    const std::size_t subset = response.find('[', start);
    if (subset != std::string::npos && subset < end) {
      const std::size_t close = response.find(']', subset);
      end = close == std::string::npos ? std::string::npos : response.find('>', close);
    }
    if (end == std::string::npos) return;
    if (std::string_view(response).substr(start, end - start).find(detail::kOnlinePublicId) != std::string_view::npos) {
      response.erase(start, end + 1 - start);
      return;
    }
    start = response.find("<!DOCTYPE", end);
  }
}

// The session's processor; 1000 when there is none.
std::shared_ptr<IRequestProcessor> RequireProcessor() {
  std::shared_ptr<IRequestProcessor> processor = CurrentSession().processor;
  if (!processor) Raise(1000, "QBConnection");
  return processor;
}

}  // namespace

void xmlBldr::WriteTrace(std::string_view text) {
  try {
    const Session& session = CurrentSession();
    const std::string& path = session.tracePath.empty() ? tracePath_ : session.tracePath;
    if (path.empty()) return;
    AppendLine(path, TraceBody(text));
  } catch (...) {
    // Failures while tracing are ignored.
  }
}

std::string xmlBldr::Exchange(bool routeSubscriptions) {
  std::shared_ptr<IRequestProcessor> processor = RequireProcessor();
  // The stretch from the join to the response answers every failure with 1999; the processor's
  // own text is kept in ErrMsg.
  try {
    JoinPieces();
    // An online request has no top of its own (CreateTop writes none): it gets the declaration and
    // the online edition's DOCTYPE here, on its way out.
    if (CurrentSession().isOnline && xml_.compare(0, 5, "<?xml") != 0) xml_.insert(0, detail::kOnlineTop);
    WriteTrace("<OUTGOING>");
    WriteTrace(xml_);
    WriteTrace("</OUTGOING>");
    std::string response = routeSubscriptions && xml_.find(detail::kSubscriptionMsgsRq) != std::string::npos
                               ? processor->ProcessSubscription(xml_)
                               : processor->ProcessRequest(CurrentSession().ticket, xml_);
    WriteTrace("<RETURNS>");
    WriteTrace(response);
    WriteTrace("</RETURNS>");
    return response;
  } catch (const BrenvaleError& e) {
    errMsg_ = e.Description();
  } catch (const std::exception& e) {
    errMsg_ = e.what();
  } catch (...) {
  }
  Raise(kParserErrorCode, "Brenvale", kParserErrorText);
}

DomDocument xmlBldr::SendToQB() {
  std::string response = Exchange(true);
  if (CurrentSession().isOnline) RemoveOnlineDoctype(response);
  DomDocument document = DomDocument::Load(std::move(response));

  // The status of the first response: document child 1 (after the declaration), its first child
  // (the messages aggregate) and that one's first child. Anything missing or unreadable is skipped.
  const DomNode first = document.Child(1).Child(0).Child(0);
  if (first) {
    first.ForEachAttribute([this](std::string_view name, std::string_view value) {
      if (name == "statusCode") {
        Long code = 0;
        const char* end = value.data() + value.size();
        if (!value.empty() && value.front() == '+') value.remove_prefix(1);
        auto result = std::from_chars(value.data(), end, code);
        if (result.ec == std::errc() && result.ptr == end) errNumber_ = code;
      } else if (name == "statusMessage") {
        errMsg_.assign(value);
        detail::FixC1Controls(errMsg_);
      }
    });
  }
  return document;
}

DomDocument xmlBldr::NewSendRequest() {
  RequireProcessor();
  // The builder's own trace file holds the last request only.
  if (!tracePath_.empty()) detail::WriteFileBytes(tracePath_, "<Trace>\n", false);
  EndAggregate(detail::kMsgsRq);
  EndAggregate(detail::kRoot);
  DomDocument document = SendToQB();
  if (!tracePath_.empty()) AppendLine(tracePath_, "</Trace>");
  return document;
}

DomDocument xmlBldr::NewSendSubscriptionRequest() {
  RequireProcessor();
  EndAggregate(detail::kSubscriptionMsgsRq);
  EndAggregate(detail::kRoot);
  return SendToQB();
}

std::string xmlBldr::XMLSendToQB() {
  RequireProcessor();
  EndAggregate(detail::kMsgsRq);
  EndAggregate(detail::kRoot);
  return Exchange(false);
}

}  // namespace brenvale
