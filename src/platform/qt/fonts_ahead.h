#pragma once

#include <future>

/// Begins to find out which fonts the system has, beside whatever the caller does next: the first
/// text waits for that. No text may be measured before what it answers is ready. Where Qt knows its
/// fonts by other means, there is nothing to do.
std::future<void> ReadFontsAhead();
