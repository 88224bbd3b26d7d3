#pragma once

#include <string>
#include <string_view>

/// The names that an operation uses for what is not finished: ".qv-<pid>-<n>.part".

/// A name not handed out before by this process.
std::string NextTemporaryName();

/// True for every name of that form, whichever process made it.
bool IsTemporaryName(std::string_view name);
