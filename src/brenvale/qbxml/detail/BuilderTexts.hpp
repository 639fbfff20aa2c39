#pragma once
// The fixed texts that the request builder writes and the trace writer strips, in one place.
#include <string_view>

namespace brenvale::detail {

inline constexpr std::string_view kPlainDeclaration = "<?xml version=\"1.0\" ?>";
inline constexpr std::string_view kIsoDeclaration = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>";
// A desktop DOCTYPE is kDoctypeHead + version text + kDoctypeTail.
inline constexpr std::string_view kDoctypeHead = "<!DOCTYPE QBXML PUBLIC '-//INTUIT//DTD QBXML QBD ";
inline constexpr std::string_view kDoctypeTail = "//EN' >";
// The versions whose DOCTYPE the trace writer strips.
inline constexpr std::string_view kTracedDoctypeVersions[16] = {
    "1.0", "1.1", "2.0", "CA2.0", "CA3.0", "2.1", "3.0", "4.0",
    "4.1", "5.0", "6.0", "7.0", "8.0", "9.0", "10.0", "11.0"};
// The public identifier of the online edition's DOCTYPE, removed from online responses.
inline constexpr std::string_view kOnlinePublicId = "-//INTUIT//DTD QBXML QBO 2.0//EN";
// What an online request carries in front of its root, put in at send time.
inline constexpr std::string_view kOnlineTop =
    "<?xml version=\"1.0\" ?><!DOCTYPE QBXML PUBLIC \"-//INTUIT//DTD QBXML QBO 2.0//EN\" "
    "\"http://apps.quickbooks.com/qbXML/qbxmlops20.dtd\">";

inline constexpr std::string_view kMsgsRq = "QBXMLMsgsRq";
inline constexpr std::string_view kSubscriptionMsgsRq = "QBXMLSubscriptionMsgsRq";
inline constexpr std::string_view kRoot = "QBXML";
inline constexpr std::string_view kIoRoot = "Brenvale";

}  // namespace brenvale::detail
