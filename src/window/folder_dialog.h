#pragma once

#include <string>

class QWidget;

namespace mMain {

/// The folder dialog over `owner`, on the folder `start` or the nearest one above it that is there;
/// answers the chosen path, empty after a cancel. Without a `start` that is there, nothing is
/// selected yet, and OK stays off until something is.
std::string BrowseForDisk(QWidget* owner, const std::string& start);

}  // namespace mMain
