#include "brenvale/qbxml/ResponseView.hpp"

#include <charconv>

namespace brenvale {
namespace {

constexpr std::string_view kQuickBooksPrefix = "QuickBooks error message: ";

// A whole number, or nothing.
std::optional<Long> WholeNumber(std::string_view text) {
  if (!text.empty() && text.front() == '+') text.remove_prefix(1);
  Long value = 0;
  auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (ec != std::errc() || end != text.data() + text.size() || text.empty()) return std::nullopt;
  return value;
}

}  // namespace

Long ResponseView::Response::RequestNumber() const {
  auto id = RequestID();
  return id ? WholeNumber(*id).value_or(0) : 0;
}

Long ResponseView::Response::StatusCode() const {
  auto code = node_.Attribute("statusCode");
  if (!code) return 0;
  return WholeNumber(*code).value_or(-1);
}

std::string ResponseView::Response::Message() const {
  std::string message = StatusMessage();
  auto at = message.find(kQuickBooksPrefix);
  if (at != std::string::npos) message.erase(0, at + kQuickBooksPrefix.size());
  return message;
}

bool ResponseView::Response::Answered() const {
  const Long status = StatusCode();
  return status == 0 || status == 1;
}

Long ResponseView::Response::RemainingCount() const {
  auto remaining = node_.Attribute("iteratorRemainingCount");
  return remaining ? WholeNumber(*remaining).value_or(0) : 0;
}

DomNode ResponseView::Response::FirstRet() const { return *Rets().begin(); }

ResponseView::ResponseView(const DomDocument& document) {
  const DomNode root = document.DocumentElement();
  if (root.IsNull() || root.BaseName() != "QBXML") return;
  messages_ = root.ChildNamed("QBXMLMsgsRs");
  if (!messages_) messages_ = root.ChildNamed("QBXMLSubscriptionMsgsRs");
}

ResponseView::Response ResponseView::First() const { return *begin(); }

std::size_t ResponseView::Count() const {
  std::size_t n = 0;
  for (auto it = begin(); it != end(); ++it) ++n;
  return n;
}

}  // namespace brenvale
