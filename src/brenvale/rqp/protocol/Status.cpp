#include "brenvale/rqp/protocol/Status.hpp"

#include "brenvale/rqp/protocol/Text.hpp"

namespace brenvale::rqp::detail {
namespace {

// How much of a value a status message quotes, in characters.
constexpr std::size_t kQuotedLimit = 100;

// QuickBooks' own explanation that follows a refused reference.
constexpr const char* kNoSuchRecord =
    "  QuickBooks error message: Invalid argument.  The specified record does not exist in the list.";

}  // namespace

std::string Quote(std::string_view value) {
  if (Utf8Length(value) <= kQuotedLimit) return "\"" + std::string(value) + "\"";
  std::size_t chars = 0, end = 0;
  while (end < value.size() && chars < kQuotedLimit) {
    ++end;
    while (end < value.size() && (static_cast<unsigned char>(value[end]) & 0xC0) == 0x80) ++end;
    ++chars;
  }
  return "\"" + std::string(value.substr(0, end)) + "...\"";
}

const char* Severity(int status) {
  if (status == 0 || status == 1) return "Info";
  if (status >= 500 && status < 600) return "Warn";
  return "Error";
}

std::string ParseFailureText(const std::string& detail) {
  std::string text = "QuickBooks found an error when parsing the provided XML text stream.";
  if (!detail.empty()) text += " " + detail;
  return text;
}

std::string NotFullyCompletedText(std::string_view element) {
  return "The query request has not been fully completed. There was a required element (" + Quote(element) +
         ") that could not be found in QuickBooks.";
}

StatusError NotFound(std::string_view object) {
  return {3120, "Object " + Quote(object) + " specified in the request cannot be found." + kNoSuchRecord};
}

StatusError NameInUse(std::string_view name) {
  return {3100, "The name " + Quote(name) + " of the list element is already in use."};
}

StatusError InvalidReference(std::string_view list, std::string_view value, std::string_view owner) {
  return {3140, "There is an invalid reference to QuickBooks " + std::string(list) + " " + Quote(value) + " in the " +
                    std::string(owner) + "." + kNoSuchRecord};
}

StatusError InvalidIterator(std::string_view iteratorId) {
  return {3391, "The iteratorID " + Quote(iteratorId) + " is not valid."};
}

}  // namespace brenvale::rqp::detail
