#pragma once

#include <QString>
#include <string>
#include <string_view>

/// File names are bytes; Qt's text is UTF-16. A byte that is no UTF-8 goes to Qt as a lone low
/// surrogate, U+DC00 + byte (U+DC80 to U+DCFF), and comes back as that byte, so that a name passes
/// through fields and models unharmed (the "surrogateescape" of Python's PEP 383).
namespace text {

/// For fields and models: nothing is lost.
QString ToQt(std::string_view t);

/// The bytes again; any other lone surrogate becomes U+FFFD.
std::string FromQt(const QString& t);

/// For showing: what a reader could not see (`IsShown`) is U+FFFD, so that one name stays one line
/// of characters that fonts have, and turns nothing around it. As long as `ToQt(t)`, with each sign
/// in its place.
QString Shown(std::string_view t);

/// The same for a text of several lines, which end in LF or CR LF.
QString ShownLines(std::string_view t);

}  // namespace text
