#pragma once
// QuickBooks' answers that are not records: the statuses of a single request with their texts, and
// the failures of a whole call that the request processor raises as errors.
#include <cstdint>
#include <string>
#include <string_view>

#include "brenvale/rqp/HostFacts.hpp"

namespace brenvale::rqp::detail {

// A failure of the whole call, raised by the processor as an error (parse failures, files).
struct ProcessError {
  std::int32_t hresult;
  std::string text;
};

// A request's error status, thrown by handlers; the request's changes are rolled back.
struct StatusError {
  int code;
  std::string message;
};

// A value quoted in a status message: "value". Values longer than a status message should carry
// are cut (the quoted text then ends in "...").
std::string Quote(std::string_view value);

// Severity of a status code: "Info", "Warn" or "Error".
const char* Severity(int status);

// The text of a parse failure: QuickBooks' sentence followed by what was wrong.
std::string ParseFailureText(const std::string& detail);

// Status 1 (Info): a filtered query found nothing.
inline constexpr const char* kNoMatchText = "A query request did not find a matching object in QuickBooks";

// 3231: a request after one that failed under onError="stopOnError" or "rollbackOnError".
inline constexpr int kNotProcessed = 3231;
inline constexpr const char* kNotProcessedText = "The request has not been processed.";

// Status 500 (Warn): an object a query named is not there.
std::string NotFullyCompletedText(std::string_view element);

// 3120: the object a request names is not there.
StatusError NotFound(std::string_view object);

// 3100: a name already taken.
StatusError NameInUse(std::string_view name);

// 3140: a reference to a record that does not exist. `list` names the list the reference points
// into ("Terms", "Account"); `owner` is the qbXML name of the object that holds it ("Customer").
StatusError InvalidReference(std::string_view list, std::string_view value, std::string_view owner);

// 3391: an iterator that is not (or no longer) open.
StatusError InvalidIterator(std::string_view iteratorId);

}  // namespace brenvale::rqp::detail
