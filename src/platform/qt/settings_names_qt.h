#pragma once

#include <QString>
#include <string>
#include <string_view>

/// Names and texts in the form in which QSettings keeps them, so that nothing that it treats in a
/// special way ever reaches it.
namespace settings_names {

/// A section as one group of QSettings, its levels parted by ".": "Windows\Main" is "Windows.Main".
/// Groups never nest, so a key can't meet a section. Two sections never share a group.
QString Group(std::string_view section);

/// The full name of a key: its group, "/", and the key. Letters, digits and "_" stand as they are,
/// any other byte is "-" and two hexadecimal digits.
QString Key(std::string_view section, std::string_view key);

/// A text, readable in the file: "%", control characters, and bytes that are no UTF-8 are "%" and
/// two hexadecimal digits.
QString Stored(std::string_view value);

/// The text again; takes what somebody has typed into the file as it is.
std::string Restored(const QString& stored);

}  // namespace settings_names
