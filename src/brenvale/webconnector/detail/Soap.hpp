#pragma once
// The Web Connector's SOAP 1.1 messages (document/literal, namespace http://developer.intuit.com/).
// Every operation is declared once, as data; reading and writing calls and results, and the WSDL,
// are served from that one table, for the service and for our own Web Connector alike.
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace brenvale::webconnector::detail {

inline constexpr std::string_view kTargetNamespace = "http://developer.intuit.com/";
inline constexpr std::string_view kEnvelopeNamespace = "http://schemas.xmlsoap.org/soap/envelope/";

enum class ValueType { String, Int, Strings };

struct Parameter {
  std::string_view name;
  ValueType type = ValueType::String;
  std::string_view alias = {};  // another spelling read as this parameter
};

struct Operation {
  std::string_view name;
  std::vector<Parameter> parameters;
  ValueType result;
};

// Every operation of the protocol, in the order of a session.
const std::vector<Operation>& Operations();
// The operation of that name (exact, case included), or nullptr.
const Operation* FindOperation(std::string_view name);

// A call as the service reads it. A missing parameter reads as empty text (0 for a number), as a
// client that leaves out null values sends it.
struct Call {
  const Operation* operation = nullptr;
  std::map<std::string, std::string, std::less<>> arguments;
  const std::string& Argument(std::string_view name) const;
  int IntArgument(std::string_view name) const;
};

// A SOAP fault: "soap:Client", "soap:Server" or "soap:VersionMismatch" and a text for people.
struct Fault {
  std::string code;
  std::string text;
};

using Result = std::variant<std::string, int, std::vector<std::string>>;

std::variant<Call, Fault> ReadCall(std::string_view body);
std::string ResultEnvelope(const Operation& operation, const Result& result);
std::string FaultEnvelope(const Fault& fault);

// The client's half: a call's envelope (arguments in the operation's parameter order), and the
// result read from the service's answer into `result` — or the fault, when the answer is one or is
// not this operation's.
std::string CallEnvelope(const Operation& operation, const std::vector<std::string>& arguments);
std::optional<Fault> ReadResult(const Operation& operation, std::string_view body, Result& result);

// The SOAPAction header of an operation, quotes included.
std::string SoapAction(const Operation& operation);

// The service description, with `location` as the service's address.
std::string Wsdl(std::string_view location);

// Text escaped for an XML element: & < > and carriage returns.
std::string EscapeText(std::string_view text);

// Whether text can travel in an XML 1.0 document; otherwise the offending character's code.
std::optional<unsigned> ForbiddenCharacter(std::string_view text);

}  // namespace brenvale::webconnector::detail
