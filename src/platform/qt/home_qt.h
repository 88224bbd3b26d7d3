#pragma once

#include <string>

/// The user's own folder, in the bytes of the system; what "~" stands for.
std::string HomeFolder();
