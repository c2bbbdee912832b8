#include "fakes/temp_folder.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <stdexcept>

#include "platform/paths.h"

namespace fakes {

std::string TempFolder::Path(std::string_view relative) const {
    if (relative.empty()) return root_;
    std::string path = platform::WithSeparator(root_).append(relative);
    std::replace(path.begin() + static_cast<std::ptrdiff_t>(root_.size()), path.end(), '/',
                 platform::Separator);
    return path;
}

void TempFolder::WriteFile(std::string_view relative, std::string_view content,
                           platform::FileTime time) const {
    WriteFile(relative, content);
    SetTime(relative, time);
}

platform::FileTime Time(const char* text) {
    int year = 0;
    unsigned month = 0, day = 0;
    int hour = 0, minute = 0, length = 0;
    double second = 0;
    std::sscanf(text, "%d-%u-%u %d:%d:%lf UTC%n", &year, &month, &day, &hour, &minute, &second,
                &length);
    if (length == 0) throw std::invalid_argument(text);
    const std::chrono::sys_days date{std::chrono::year(year) / std::chrono::month(month) /
                                     std::chrono::day(day)};
    const auto whole = static_cast<int>(second);
    return {date.time_since_epoch().count() * 86400LL + hour * 3600 + minute * 60 + whole +
                platform::kUnixOrigin,
            static_cast<std::int32_t>(std::lround((second - whole) * 1e9))};
}

}  // namespace fakes
