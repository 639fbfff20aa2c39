#include "brenvale/model/DataExtension.hpp"

#include <charconv>
#include <cmath>

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/core/Enumerations.hpp"
#include "brenvale/core/TraceHook.hpp"
#include "brenvale/model/DataExtensions.hpp"
#include "brenvale/qbxml/Conversions.hpp"
#include "brenvale/qbxml/Dom.hpp"
#include "brenvale/qbxml/Session.hpp"

namespace brenvale {
namespace {

constexpr std::string_view kSource = "DataExt";

std::string_view Trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const auto first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::optional<std::int64_t> WholeOfText(std::string_view text) {
  text = Trimmed(text);
  if (!text.empty() && text.front() == '+') text.remove_prefix(1);
  std::int64_t value = 0;
  auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (text.empty() || ec != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

// A date written "yyyy-mm-dd" or "yyyy-mm-ddThh:mm:ss".
std::optional<Date> DateOfText(std::string_view text) {
  text = Trimmed(text);
  if (text.size() != 10 && text.size() < 19) return std::nullopt;
  const Date d = TextToDate(text);
  if (d.IsNull()) return std::nullopt;
  return d;
}

bool IsKnownType(qbEnumDataExtDataType type) {
  return type >= qbDataExtTypeINTTYPE && type <= qbDataExtTypeSTR1024TYPE;
}

}  // namespace

DataExtension::DataExtension(std::string name, std::string ownerId, qbEnumDataExtDataType type)
    : name_(std::move(name)), ownerId_(std::move(ownerId)), type_(type) {}

zkErrors& DataExtension::Errors() {
  if (!errors_) errors_ = std::make_unique<zkErrors>();
  return *errors_;
}

const zkErrors& DataExtension::Errors() const {
  static const zkErrors kNone;
  return errors_ ? *errors_ : kNone;
}

Variant& DataExtension::UserData() {
  if (!userData_) userData_ = std::make_unique<Variant>();
  return *userData_;
}

// --- where the value is kept ------------------------------------------------------------------

bool DataExtension::MayChangeKey() {
  if (state_ == zqObjectStateNew) return true;
  Errors().AddCode(1002, std::string(kSource));
  return false;
}

void DataExtension::DataType(qbEnumDataExtDataType value) {
  if (value != type_ && MayChangeKey()) type_ = value;
}

std::string DataExtension::ListOrTxnId() const {
  if (!listOrTxnId_.empty() || !holder_) return listOrTxnId_;
  return holder_->ListOrTxnId();
}

void DataExtension::ListOrTxnId(std::string value) {
  if (value != ListOrTxnId() && MayChangeKey()) listOrTxnId_ = std::move(value);
}

std::string DataExtension::TxnLineId() const {
  if (!txnLineId_.empty() || !holder_) return txnLineId_;
  return holder_->TxnLineId();
}

void DataExtension::TxnLineId(std::string value) {
  if (value != TxnLineId() && MayChangeKey()) txnLineId_ = std::move(value);
}

// --- the value --------------------------------------------------------------------------------

namespace {

using Held = std::variant<std::monostate, std::string, std::int64_t, double, Currency, Date>;

std::optional<std::int64_t> AsWhole(const Held& h) {
  if (auto v = std::get_if<std::int64_t>(&h)) return *v;
  if (auto d = std::get_if<double>(&h)) {
    if (std::isfinite(*d) && std::trunc(*d) == *d && std::fabs(*d) < 9.2e18) return static_cast<std::int64_t>(*d);
    return std::nullopt;
  }
  if (auto c = std::get_if<Currency>(&h)) {
    if (c->Units() % Currency::kScale == 0) return c->Units() / Currency::kScale;
    return std::nullopt;
  }
  if (auto s = std::get_if<std::string>(&h)) return WholeOfText(*s);
  return std::nullopt;
}

std::optional<Currency> AsCurrency(const Held& h) {
  if (auto v = std::get_if<std::int64_t>(&h)) return Currency::FromUnits(*v * Currency::kScale);
  if (auto d = std::get_if<double>(&h)) {
    if (!std::isfinite(*d)) return std::nullopt;
    return Currency::FromDouble(*d);
  }
  if (auto c = std::get_if<Currency>(&h)) return *c;
  if (auto s = std::get_if<std::string>(&h)) return Currency::Parse(Trimmed(*s));
  return std::nullopt;
}

std::optional<double> AsNumber(const Held& h) {
  if (auto v = std::get_if<std::int64_t>(&h)) return static_cast<double>(*v);
  if (auto d = std::get_if<double>(&h)) {
    if (!std::isfinite(*d)) return std::nullopt;
    return *d;
  }
  if (auto c = std::get_if<Currency>(&h)) return c->ToDouble();
  if (auto s = std::get_if<std::string>(&h)) {
    if (Trimmed(*s).empty()) return std::nullopt;
    return TextToNumber(*s);
  }
  return std::nullopt;
}

std::optional<Date> AsDate(const Held& h) {
  if (auto d = std::get_if<Date>(&h)) return *d;
  if (auto s = std::get_if<std::string>(&h)) return DateOfText(*s);
  return std::nullopt;
}

}  // namespace

std::optional<std::string> DataExtension::TextFor(const Held& held, qbEnumDataExtDataType type) {
  if (std::holds_alternative<std::monostate>(held)) return std::string();
  switch (type) {
    case qbDataExtTypeINTTYPE:
      if (auto v = AsWhole(held)) return std::to_string(*v);
      return std::nullopt;
    case qbDataExtTypeAMTTYPE:
      if (auto c = AsCurrency(held)) return AmountToText(*c);
      return std::nullopt;
    case qbDataExtTypePRICETYPE:
      if (auto d = AsNumber(held)) return PriceToText(*d);
      return std::nullopt;
    case qbDataExtTypePERCENTTYPE:
      // A percentage is kept to four decimals, then written as a price is.
      if (auto d = AsNumber(held)) return PriceToText(Currency::FromDouble(*d).ToDouble());
      return std::nullopt;
    case qbDataExtTypeQUANTYPE:
      if (auto d = AsNumber(held)) return QuantityToRequestText(*d);
      return std::nullopt;
    case qbDataExtTypeDATETIMETYPE:
      if (auto d = AsDate(held)) return DateTimeToText(*d);
      return std::nullopt;
    case qbDataExtTypeSTR255TYPE:
    case qbDataExtTypeSTR1024TYPE:
      if (auto s = std::get_if<std::string>(&held)) return *s;
      if (auto v = std::get_if<std::int64_t>(&held)) return std::to_string(*v);
      if (auto d = std::get_if<double>(&held)) return NumberToText(*d);
      if (auto c = std::get_if<Currency>(&held)) return c->ToShortString();
      if (auto t = std::get_if<Date>(&held)) return DateTimeToText(*t);
      return std::nullopt;
  }
  return std::nullopt;
}

DataExtension::Held DataExtension::FromText(std::string_view text, qbEnumDataExtDataType type) {
  if (text.empty()) return std::monostate{};
  const Held asText = std::string(text);
  switch (type) {
    case qbDataExtTypeINTTYPE:
      if (auto v = AsWhole(asText)) return *v;
      break;
    case qbDataExtTypeAMTTYPE:
      if (auto c = AsCurrency(asText)) return *c;
      break;
    case qbDataExtTypePRICETYPE:
    case qbDataExtTypePERCENTTYPE:
    case qbDataExtTypeQUANTYPE:
      if (auto d = AsNumber(asText)) return *d;
      break;
    case qbDataExtTypeDATETIMETYPE:
      if (auto d = AsDate(asText)) return *d;
      break;
    default: break;
  }
  return asText;
}

bool DataExtension::HasValue() const { return !std::holds_alternative<std::monostate>(value_); }

Variant DataExtension::Value() const {
  if (!HasValue()) return {};
  switch (type_) {
    case qbDataExtTypeINTTYPE:
      if (auto v = AsWhole(value_); v && *v >= INT32_MIN && *v <= INT32_MAX) return static_cast<Long>(*v);
      break;
    case qbDataExtTypeAMTTYPE:
      if (auto c = AsCurrency(value_)) return *c;
      break;
    case qbDataExtTypePRICETYPE:
    case qbDataExtTypeQUANTYPE:
    case qbDataExtTypePERCENTTYPE:
      if (auto d = AsNumber(value_)) return *d;
      break;
    case qbDataExtTypeDATETIMETYPE:
      if (auto d = AsDate(value_)) return *d;
      break;
    default:
      if (auto s = TextFor(value_, type_)) return *s;
      break;
  }
  // A value the type cannot take (read as it came, or set before the type changed): as it is held.
  return std::visit(
      [](const auto& v) -> Variant {
        if constexpr (std::is_same_v<std::decay_t<decltype(v)>, std::monostate>)
          return {};
        else
          return v;
      },
      value_);
}

std::string DataExtension::ValueText() const { return TextFor(value_, type_).value_or(std::string()); }

void DataExtension::Set(Held value) {
  if (auto s = std::get_if<std::string>(&value); s && s->empty()) value = std::monostate{};
  if (IsKnownType(type_) && !TextFor(value, type_)) platform::Raise(platform::kTypeMismatch, kSource);
  value_ = std::move(value);
  if (state_ == zqObjectStateClean) state_ = zqObjectStateDirty;
}

void DataExtension::Value(const Variant& value) {
  if (!value.has_value()) return Set(std::monostate{});
  if (auto s = std::any_cast<std::string>(&value)) return Set(*s);
  if (auto s = std::any_cast<const char*>(&value)) return Set(std::string(*s ? *s : ""));
  if (auto s = std::any_cast<char*>(&value)) return Set(std::string(*s ? *s : ""));
  if (auto s = std::any_cast<std::string_view>(&value)) return Set(std::string(*s));
  if (auto v = std::any_cast<int>(&value)) return Set(static_cast<std::int64_t>(*v));
  if (auto v = std::any_cast<long>(&value)) return Set(static_cast<std::int64_t>(*v));
  if (auto v = std::any_cast<long long>(&value)) return Set(static_cast<std::int64_t>(*v));
  if (auto v = std::any_cast<short>(&value)) return Set(static_cast<std::int64_t>(*v));
  if (auto v = std::any_cast<unsigned>(&value)) return Set(static_cast<std::int64_t>(*v));
  if (auto v = std::any_cast<double>(&value)) return Set(*v);
  if (auto v = std::any_cast<float>(&value)) return Set(static_cast<double>(*v));
  if (auto v = std::any_cast<Currency>(&value)) return Set(*v);
  if (auto v = std::any_cast<Date>(&value)) return Set(*v);
  platform::Raise(platform::kTypeMismatch, kSource);
}

void DataExtension::ValueAsString(std::string_view text) { Set(std::string(text)); }

// --- reading, checking, saving ----------------------------------------------------------------

Long DataExtension::FromDom(const DomNode& obj) {
  std::string text;
  for (DomNode c : obj.Children()) {
    if (!c.IsElement()) continue;
    const std::string_view name = c.BaseName();
    if (name == "OwnerID") {
      if (std::string owner = c.Text(); !owner.empty()) ownerId_ = std::move(owner);
    } else if (name == "DataExtName") {
      name_ = c.Text();
    } else if (name == "DataExtType") {
      if (auto code = EnumCatalogue(zqeDataExtDataTypes).CodeOfText(c.Text()))
        type_ = static_cast<qbEnumDataExtDataType>(*code);
    } else if (name == "DataExtValue") {
      text = c.Text();
    } else if (detail::TraceObserved()) {
      detail::TraceUnknownField(kSource, name);
    }
  }
  value_ = FromText(text, type_);
  state_ = zqObjectStateClean;
  return 0;
}

std::string_view DataExtension::PendingRequest() const {
  if (state_ == zqObjectStateNew) return HasValue() ? "Add" : "";
  if (state_ == zqObjectStateDirty) return HasValue() ? "Mod" : "Del";
  return "";
}

bool DataExtension::Validate() {
  zkErrors& errors = Errors();
  errors.Clear();
  if (!IsKnownType(type_)) {
    errors.AddCode(1007, std::string(kSource), "Unknown Data Type: " + std::to_string(static_cast<int>(type_)));
  } else if (!TextFor(value_, type_)) {
    errors.Add(platform::kTypeMismatch, "DataExtValue",
               "Type mismatch: the value cannot be a " + EnumCatalogue(zqeDataExtDataTypes).XMLTagOf(
                                                               static_cast<Integer>(type_)));
  }
  if (CurrentSession().qbXMLVersionNumber < Currency(2)) errors.AddCode(1005, std::string(kSource));
  if (holder_) holder_->CheckTarget(*this, errors);
  return errors.Count() == 0;
}

void DataExtension::Saved(bool kept) {
  errors_.reset();
  if (kept) {
    state_ = zqObjectStateClean;
  } else {
    value_ = std::monostate{};
    state_ = zqObjectStateNew;
  }
}

}  // namespace brenvale
