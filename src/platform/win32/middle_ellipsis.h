// Shortens a path in its middle, so that its beginning and its file name stay readable.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace platform::win32 {

// The widest form of `text` whose measure is at most `width`: the text itself, or its beginning,
// "..." and its end. The end is the last component of the path where that leaves room for a
// beginning. At the least "..." comes back, however narrow the place.
std::wstring ShortenMiddle(std::wstring_view text, int width,
                           const std::function<int(std::wstring_view)>& measure);

}  // namespace platform::win32
