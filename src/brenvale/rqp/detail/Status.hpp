#pragma once
// QuickBooks' statuses of a single request, with their texts.
#include <string>
#include <string_view>

namespace brenvale::rqp::detail {

// A request's error status, thrown by handlers; the request's changes are rolled back.
struct StatusError {
  int code;
  std::string message;
};

inline std::string Quote(std::string_view s) { return "\"" + std::string(s) + "\""; }

// Status 1 (Info): a filtered query found nothing.
inline constexpr const char* kNoMatchText = "A query request did not find a matching object in QuickBooks";

// Status 500 (Warn): an object a query named is not there.
inline std::string NotFullyCompletedText(std::string_view element) {
  return "The query request has not been fully completed. There was a required element (" + Quote(element) +
         ") that could not be found in QuickBooks.";
}

// 3120: the object a request names is not there.
inline StatusError NotFound(std::string_view object) {
  return {3120, "Object " + Quote(object) + " specified in the request cannot be found."};
}

// 3100: a name already taken.
inline StatusError NameInUse(std::string_view name) {
  return {3100, "The name " + Quote(name) + " of the list element is already in use."};
}

// 3140: a reference to a record that does not exist.
inline StatusError InvalidReference(std::string_view list, std::string_view value, std::string_view owner) {
  return {3140, "There is an invalid reference to QuickBooks " + std::string(list) + " " + Quote(value) + " in the " +
                    std::string(owner) +
                    ". QuickBooks error message: Invalid argument.  The specified record does not exist in the list."};
}

}  // namespace brenvale::rqp::detail
