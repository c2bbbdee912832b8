#include "fakes/temp_folder.h"

#include <algorithm>
#include <chrono>
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
    int hour = 0, minute = 0, second = 0, length = 0;
    std::sscanf(text, "%d-%u-%u %d:%d:%d%n", &year, &month, &day, &hour, &minute, &second, &length);
    std::string_view rest = std::string_view(text).substr(static_cast<std::size_t>(length));
    platform::FileTime time;
    if (rest.starts_with('.')) {
        rest.remove_prefix(1);
        for (std::int32_t unit = 100'000'000; !rest.empty() && rest[0] >= '0' && rest[0] <= '9';
             unit /= 10) {
            time.Nanoseconds += (rest[0] - '0') * unit;
            rest.remove_prefix(1);
        }
    }
    if (length == 0 || rest != " UTC") throw std::invalid_argument(text);
    const std::chrono::sys_days date{std::chrono::year(year) / std::chrono::month(month) /
                                     std::chrono::day(day)};
    time.Seconds = date.time_since_epoch().count() * 86400LL + hour * 3600 + minute * 60 + second +
                   platform::kUnixOrigin;
    return time;
}

}  // namespace fakes
