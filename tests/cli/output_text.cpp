#include "cli/output_text.h"

#include <algorithm>

#include <stdlib.h>

namespace cli {

namespace {

// One line of a terminal and the place where it writes next.
class ScreenLine {
  public:
    void Put(char character) {
        if (at_ >= text_.size()) text_.resize(at_ + 1, ' ');
        text_[at_++] = character;
    }
    void Return() { at_ = 0; }
    void Back() { at_ -= at_ > 0 ? 1 : 0; }
    void Erase(int what) {  // 0: to the end, 1: from the start, 2: all
        const std::size_t end = std::min(at_, text_.size());
        if (what != 1) text_.resize(end);
        if (what != 0) std::fill_n(text_.begin(), end, ' ');
    }
    std::string Shown() const { return text_.substr(0, text_.find_last_not_of(' ') + 1); }

  private:
    std::string text_;
    std::size_t at_ = 0;
};

}  // namespace

Texts ScreenAfter(const std::string& bytes) {
    std::vector<ScreenLine> screen(1);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (bytes.compare(i, 2, "\x1b[") == 0) {
            const std::size_t end = bytes.find_first_not_of("0123456789;", i + 2);
            if (end == std::string::npos) break;
            if (bytes[end] == 'K') screen.back().Erase(::atoi(bytes.c_str() + i + 2));
            i = end;
        } else if (bytes[i] == '\n') {
            screen.emplace_back();
        } else if (bytes[i] == '\r') {
            screen.back().Return();
        } else if (bytes[i] == '\b') {
            screen.back().Back();
        } else {
            screen.back().Put(bytes[i]);
        }
    }
    Texts lines;
    for (const ScreenLine& line : screen) lines.push_back(line.Shown());
    while (!lines.empty() && lines.back().empty()) lines.pop_back();
    return lines;
}

Texts Lines(const std::string& text) {
    Texts lines;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        lines.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    return lines;
}

Texts SortedLines(const std::string& text) {
    Texts lines = Lines(text);
    std::sort(lines.begin(), lines.end());
    return lines;
}

}  // namespace cli
