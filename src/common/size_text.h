#pragma once

#include <string>
#include <string_view>

#include "common/path_text.h"
#include "platform/services.h"
#include "platform/system_facts.h"

/// Numbers of bytes as text.
namespace mCommon {

/// `Size` as a whole number with the locale's thousands: alone (`NumberMode` 0), with "bytes" (1),
/// or in "KB", rounded up (2); "" for any other mode.
std::string SizeCorrectView(double Size, int NumberMode, const LocaleFacts& locale);

/// `num` bytes in the unit that leaves at most three digits before the point, in three digits;
/// from 1024 GB on without a unit.
std::string RoundEx(double num, const LocaleFacts& locale);

/// The bytes that are free to the user at the root of `pPath`, in both ways from 1000 on; "" when
/// the system doesn't tell.
std::string GetFreeSpace(SystemFacts& facts, const LocaleFacts& locale, std::string_view pPath,
                         PathStyle style = kNative);

/// The size of the program's file, from 1000 bytes on rounded and, with `Full`, exact behind it;
/// "" when the system doesn't tell.
std::string GetFileExeSize(SystemFacts& facts, const LocaleFacts& locale, bool Full);

}  // namespace mCommon
