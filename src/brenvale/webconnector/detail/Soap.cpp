#include "brenvale/webconnector/detail/Soap.hpp"

#include <pugixml.hpp>

#include <algorithm>
#include <charconv>
#include <sstream>

namespace brenvale::webconnector::detail {
namespace {

constexpr std::string_view kEnvelopeHead =
    "<?xml version=\"1.0\" encoding=\"utf-8\"?>"
    "<soap:Envelope xmlns:soap=\"http://schemas.xmlsoap.org/soap/envelope/\" "
    "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\">"
    "<soap:Body>";
constexpr std::string_view kEnvelopeTail = "</soap:Body></soap:Envelope>";

std::string_view LocalName(pugi::xml_node node) {
  std::string_view name = node.name();
  const std::size_t colon = name.find(':');
  return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

// The namespace of an element, from the xmlns declarations in scope.
std::string_view NamespaceOf(pugi::xml_node node) {
  std::string_view name = node.name();
  const std::size_t colon = name.find(':');
  const std::string attribute =
      colon == std::string_view::npos ? std::string("xmlns") : "xmlns:" + std::string(name.substr(0, colon));
  for (pugi::xml_node n = node; n && n.type() == pugi::node_element; n = n.parent())
    if (pugi::xml_attribute a = n.attribute(attribute.c_str())) return a.value();
  return {};
}

pugi::xml_node ChildElement(pugi::xml_node parent, std::string_view localName) {
  for (pugi::xml_node c : parent.children())
    if (c.type() == pugi::node_element && (localName.empty() || LocalName(c) == localName)) return c;
  return {};
}

// All the text of an element, CDATA sections included.
std::string TextOf(pugi::xml_node node) {
  std::string text;
  for (pugi::xml_node c : node.children())
    if (c.type() == pugi::node_pcdata || c.type() == pugi::node_cdata) text += c.value();
  return text;
}

// The first element of the envelope's body; an empty node with `fault` set when there is none.
pugi::xml_node BodyElement(pugi::xml_document& doc, std::string_view body, Fault& fault) {
  pugi::xml_parse_result parsed =
      doc.load_buffer(body.data(), body.size(), pugi::parse_default | pugi::parse_ws_pcdata, pugi::encoding_utf8);
  if (!parsed) {
    fault = {"soap:Client", std::string("The message is not well-formed XML: ") + parsed.description() +
                                " at offset " + std::to_string(parsed.offset) + "."};
    return {};
  }
  pugi::xml_node envelope = doc.document_element();
  if (LocalName(envelope) != "Envelope" || NamespaceOf(envelope).empty()) {
    fault = {"soap:Client", "The message is not a SOAP envelope."};
    return {};
  }
  if (NamespaceOf(envelope) != kEnvelopeNamespace) {
    fault = {"soap:VersionMismatch", "The service speaks SOAP 1.1 (envelope namespace " +
                                         std::string(kEnvelopeNamespace) + ") only."};
    return {};
  }
  pugi::xml_node element = ChildElement(ChildElement(envelope, "Body"), {});
  if (!element) fault = {"soap:Client", "The SOAP body is empty or missing."};
  return element;
}

// <element attributes>content</element>
std::string Wrap(std::string_view element, std::string_view content, std::string_view attributes = {}) {
  std::string text;
  text.reserve(content.size() + 2 * element.size() + attributes.size() + 5);
  text.append("<").append(element).append(attributes).append(">").append(content);
  text.append("</").append(element).append(">");
  return text;
}

// The envelope around one element of the service's namespace.
std::string Envelope(std::string_view element, std::string_view content) {
  const std::string xmlns = " xmlns=\"" + std::string(kTargetNamespace) + "\"";
  return std::string(kEnvelopeHead) + Wrap(element, content, xmlns) + std::string(kEnvelopeTail);
}

std::string ResponseName(const Operation& op) { return std::string(op.name) + "Response"; }
std::string ResultName(const Operation& op) { return std::string(op.name) + "Result"; }

const std::string kEmpty;

}  // namespace

const std::vector<Operation>& Operations() {
  using enum ValueType;
  static const std::vector<Operation> operations = {
      {"serverVersion", {{"strVersion"}}, String},
      {"clientVersion", {{"strVersion"}}, String},
      {"authenticate", {{"strUserName"}, {"strPassword"}}, Strings},
      {"sendRequestXML",
       {{"ticket"},
        {"strHCPResponse"},
        {"strCompanyFileName", String, "strCompanyFilename"},
        {"qbXMLCountry"},
        {"qbXMLMajorVers", Int},
        {"qbXMLMinorVers", Int}},
       String},
      {"receiveResponseXML", {{"ticket"}, {"response"}, {"hresult"}, {"message"}}, Int},
      {"connectionError", {{"ticket"}, {"hresult"}, {"message"}}, String},
      {"getLastError", {{"ticket"}}, String},
      {"closeConnection", {{"ticket"}}, String},
      {"getInteractiveURL", {{"wcTicket"}, {"sessionID"}}, String},
      {"interactiveDone", {{"wcTicket"}}, String},
      {"interactiveRejected", {{"wcTicket"}, {"reason"}}, String},
  };
  return operations;
}

const Operation* FindOperation(std::string_view name) {
  const auto& ops = Operations();
  auto it = std::find_if(ops.begin(), ops.end(), [&](const Operation& op) { return op.name == name; });
  return it == ops.end() ? nullptr : &*it;
}

const std::string& Call::Argument(std::string_view name) const {
  auto it = arguments.find(name);
  return it == arguments.end() ? kEmpty : it->second;
}

int Call::IntArgument(std::string_view name) const {
  std::string_view text = Argument(name);
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t' || text.front() == '\n')) text.remove_prefix(1);
  int value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

std::variant<Call, Fault> ReadCall(std::string_view body) {
  pugi::xml_document doc;
  Fault fault;
  pugi::xml_node element = BodyElement(doc, body, fault);
  if (!element) return fault;
  Call call;
  call.operation = FindOperation(LocalName(element));
  if (!call.operation || NamespaceOf(element) != kTargetNamespace)
    return Fault{"soap:Client", "The service has no operation '" + std::string(LocalName(element)) +
                                    "' in the namespace '" + std::string(NamespaceOf(element)) + "'."};
  for (pugi::xml_node child : element.children()) {
    if (child.type() != pugi::node_element) continue;
    const std::string_view name = LocalName(child);
    for (const Parameter& p : call.operation->parameters)
      if (p.name == name || (!p.alias.empty() && p.alias == name)) call.arguments[std::string(p.name)] = TextOf(child);
  }
  return call;
}

std::string EscapeText(std::string_view text) {
  std::string out;
  out.reserve(text.size() + text.size() / 8);
  for (char c : text) {
    switch (c) {
      case '&': out += "&amp;"; break;
      case '<': out += "&lt;"; break;
      case '>': out += "&gt;"; break;
      case '\r': out += "&#xD;"; break;
      default: out += c;
    }
  }
  return out;
}

std::optional<unsigned> ForbiddenCharacter(std::string_view text) {
  for (unsigned char c : text)
    if (c < 0x20 && c != '\t' && c != '\n' && c != '\r') return c;
  return std::nullopt;
}

std::string ResultEnvelope(const Operation& op, const Result& result) {
  std::string value;
  if (const auto* text = std::get_if<std::string>(&result)) {
    value = EscapeText(*text);
  } else if (const int* number = std::get_if<int>(&result)) {
    value = std::to_string(*number);
  } else {
    for (const std::string& item : std::get<std::vector<std::string>>(result)) value += Wrap("string", EscapeText(item));
  }
  return Envelope(ResponseName(op), Wrap(ResultName(op), value));
}

std::string FaultEnvelope(const Fault& fault) {
  return std::string(kEnvelopeHead) +
         Wrap("soap:Fault", Wrap("faultcode", EscapeText(fault.code)) + Wrap("faultstring", EscapeText(fault.text))) +
         std::string(kEnvelopeTail);
}

std::string CallEnvelope(const Operation& op, const std::vector<std::string>& arguments) {
  std::string content;
  for (std::size_t i = 0; i < op.parameters.size() && i < arguments.size(); ++i)
    content += Wrap(op.parameters[i].name, EscapeText(arguments[i]));
  return Envelope(op.name, content);
}

std::optional<Fault> ReadResult(const Operation& op, std::string_view body, Result& result) {
  pugi::xml_document doc;
  Fault fault;
  pugi::xml_node element = BodyElement(doc, body, fault);
  if (!element) return fault;
  if (LocalName(element) == "Fault")
    return Fault{TextOf(ChildElement(element, "faultcode")), TextOf(ChildElement(element, "faultstring"))};
  if (LocalName(element) != ResponseName(op))
    return Fault{"soap:Server", "The service answered " + std::string(LocalName(element)) + " to " +
                                    std::string(op.name) + "."};
  pugi::xml_node value = ChildElement(element, ResultName(op));
  switch (op.result) {
    case ValueType::Strings: {
      std::vector<std::string> items;
      for (pugi::xml_node c : value.children())
        if (c.type() == pugi::node_element && LocalName(c) == "string") items.push_back(TextOf(c));
      result = std::move(items);
      return std::nullopt;
    }
    case ValueType::Int: {
      const std::string text = TextOf(value);
      int number = 0;
      auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
      if (!value || error != std::errc() || end != text.data() + text.size())
        return Fault{"soap:Server", "The service's " + ResultName(op) + " is not a number: '" + text + "'."};
      result = number;
      return std::nullopt;
    }
    case ValueType::String:
      break;
  }
  result = TextOf(value);
  return std::nullopt;
}

std::string SoapAction(const Operation& op) { return "\"" + std::string(kTargetNamespace) + std::string(op.name) + "\""; }

std::string Wsdl(std::string_view location) {
  const std::string tns(kTargetNamespace);
  pugi::xml_document doc;
  pugi::xml_node defs = doc.append_child("wsdl:definitions");
  defs.append_attribute("xmlns:wsdl") = "http://schemas.xmlsoap.org/wsdl/";
  defs.append_attribute("xmlns:soap") = "http://schemas.xmlsoap.org/wsdl/soap/";
  defs.append_attribute("xmlns:s") = "http://www.w3.org/2001/XMLSchema";
  defs.append_attribute("xmlns:tns") = tns.c_str();
  defs.append_attribute("targetNamespace") = tns.c_str();

  pugi::xml_node schema = defs.append_child("wsdl:types").append_child("s:schema");
  schema.append_attribute("elementFormDefault") = "qualified";
  schema.append_attribute("targetNamespace") = tns.c_str();
  auto sequenceOf = [&](const std::string& elementName) {
    pugi::xml_node e = schema.append_child("s:element");
    e.append_attribute("name") = elementName.c_str();
    return e.append_child("s:complexType").append_child("s:sequence");
  };
  auto member = [](pugi::xml_node sequence, std::string_view name, ValueType type) {
    pugi::xml_node e = sequence.append_child("s:element");
    e.append_attribute("minOccurs") = type == ValueType::Int ? "1" : "0";
    e.append_attribute("maxOccurs") = "1";
    e.append_attribute("name") = std::string(name).c_str();
    e.append_attribute("type") = type == ValueType::Int      ? "s:int"
                                 : type == ValueType::String ? "s:string"
                                                             : "tns:ArrayOfString";
  };
  for (const Operation& op : Operations()) {
    pugi::xml_node in = sequenceOf(std::string(op.name));
    for (const Parameter& p : op.parameters) member(in, p.name, p.type);
    member(sequenceOf(ResponseName(op)), ResultName(op), op.result);
  }
  pugi::xml_node array = schema.append_child("s:complexType");
  array.append_attribute("name") = "ArrayOfString";
  pugi::xml_node item = array.append_child("s:sequence").append_child("s:element");
  item.append_attribute("minOccurs") = "0";
  item.append_attribute("maxOccurs") = "unbounded";
  item.append_attribute("name") = "string";
  item.append_attribute("nillable") = "true";
  item.append_attribute("type") = "s:string";

  for (const Operation& op : Operations()) {
    for (const char* direction : {"SoapIn", "SoapOut"}) {
      const bool in = direction[4] == 'I';
      pugi::xml_node message = defs.append_child("wsdl:message");
      message.append_attribute("name") = (std::string(op.name) + direction).c_str();
      pugi::xml_node part = message.append_child("wsdl:part");
      part.append_attribute("name") = "parameters";
      part.append_attribute("element") = ("tns:" + (in ? std::string(op.name) : ResponseName(op))).c_str();
    }
  }
  pugi::xml_node portType = defs.append_child("wsdl:portType");
  portType.append_attribute("name") = "QBWebConnectorSvcSoap";
  pugi::xml_node binding = defs.append_child("wsdl:binding");
  binding.append_attribute("name") = "QBWebConnectorSvcSoap";
  binding.append_attribute("type") = "tns:QBWebConnectorSvcSoap";
  binding.append_child("soap:binding").append_attribute("transport") = "http://schemas.xmlsoap.org/soap/http";
  for (const Operation& op : Operations()) {
    const std::string name(op.name);
    pugi::xml_node abstract = portType.append_child("wsdl:operation");
    abstract.append_attribute("name") = name.c_str();
    abstract.append_child("wsdl:input").append_attribute("message") = ("tns:" + name + "SoapIn").c_str();
    abstract.append_child("wsdl:output").append_attribute("message") = ("tns:" + name + "SoapOut").c_str();
    pugi::xml_node bound = binding.append_child("wsdl:operation");
    bound.append_attribute("name") = name.c_str();
    pugi::xml_node soapOp = bound.append_child("soap:operation");
    soapOp.append_attribute("soapAction") = (tns + name).c_str();
    soapOp.append_attribute("style") = "document";
    for (const char* direction : {"wsdl:input", "wsdl:output"})
      bound.append_child(direction).append_child("soap:body").append_attribute("use") = "literal";
  }
  pugi::xml_node service = defs.append_child("wsdl:service");
  service.append_attribute("name") = "QBWebConnectorSvc";
  pugi::xml_node port = service.append_child("wsdl:port");
  port.append_attribute("name") = "QBWebConnectorSvcSoap";
  port.append_attribute("binding") = "tns:QBWebConnectorSvcSoap";
  port.append_child("soap:address").append_attribute("location") = std::string(location).c_str();

  std::ostringstream out;
  doc.save(out, "  ", pugi::format_indent, pugi::encoding_utf8);
  return out.str();
}

}  // namespace brenvale::webconnector::detail
