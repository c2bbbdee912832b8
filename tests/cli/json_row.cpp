#include "cli/json_row.h"

#include <stdexcept>

namespace cli {

namespace {

void Require(bool holds, const char* what) {
    if (!holds) throw std::runtime_error(std::string("JSON: ") + what);
}

// The length of the UTF-8 character at `at`; 0 when there is none.
std::size_t CharacterLength(const std::string& text, std::size_t at) {
    const auto byte = [&text](std::size_t i) -> unsigned {
        return i < text.size() ? static_cast<unsigned char>(text[i]) : 0;
    };
    const auto follows = [&byte](std::size_t i) { return (byte(i) & 0xC0) == 0x80; };
    const unsigned first = byte(at);
    const unsigned second = byte(at + 1);
    if (first < 0x80) return 1;
    if (first >= 0xC2 && first <= 0xDF) return follows(at + 1) ? 2 : 0;
    if (first >= 0xE0 && first <= 0xEF) {
        const bool fits = !(first == 0xE0 && second < 0xA0) && !(first == 0xED && second > 0x9F);
        return fits && follows(at + 1) && follows(at + 2) ? 3 : 0;
    }
    if (first >= 0xF0 && first <= 0xF4) {
        const bool fits = !(first == 0xF0 && second < 0x90) && !(first == 0xF4 && second > 0x8F);
        return fits && follows(at + 1) && follows(at + 2) && follows(at + 3) ? 4 : 0;
    }
    return 0;
}

void AppendUtf8(unsigned code, std::string& text) {
    const auto put = [&text](unsigned byte) { text += static_cast<char>(byte); };
    if (code < 0x80) {
        put(code);
    } else if (code < 0x800) {
        put(0xC0 | code >> 6);
        put(0x80 | (code & 0x3F));
    } else {
        put(0xE0 | code >> 12);
        put(0x80 | (code >> 6 & 0x3F));
        put(0x80 | (code & 0x3F));
    }
}

class Reader {
  public:
    explicit Reader(const std::string& line) : line_(line) {}

    std::map<std::string, std::string> Object() {
        std::map<std::string, std::string> members;
        Expect('{');
        do {
            const std::string key = Text();
            Expect(':');
            const bool added = members.emplace(key, Next() == '"' ? Text() : Word()).second;
            Require(added, "a key twice");
        } while (Take(','));
        Expect('}');
        Require(Next() == '\0' && at_ == line_.size(), "more after the object");
        return members;
    }

  private:
    char Next() {
        while (at_ < line_.size() && line_[at_] == ' ') ++at_;
        return at_ < line_.size() ? line_[at_] : '\0';
    }
    bool Take(char character) {
        const bool there = Next() == character;
        at_ += there ? 1 : 0;
        return there;
    }
    void Expect(char character) { Require(Take(character), "another character expected"); }

    std::string Word() {
        const std::size_t end = line_.find_first_not_of("-0123456789truefals", at_);
        Require(end != std::string::npos && end > at_, "a value expected");
        const std::string word = line_.substr(at_, end - at_);
        at_ = end;
        return word;
    }

    std::string Text() {
        std::string text;
        Expect('"');
        for (;;) {
            Require(at_ < line_.size(), "a text without end");
            const char character = line_[at_];
            if (character == '"') break;
            if (character == '\\') {
                ++at_;
                Escape(text);
                continue;
            }
            Require(static_cast<unsigned char>(character) >= 0x20, "a control character");
            const std::size_t length = CharacterLength(line_, at_);
            Require(length != 0, "not UTF-8");
            text.append(line_, at_, length);
            at_ += length;
        }
        ++at_;
        return text;
    }

    void Escape(std::string& text) {
        static const std::map<char, char> kShort = {{'"', '"'},  {'\\', '\\'}, {'/', '/'},
                                                    {'b', '\b'}, {'f', '\f'},  {'n', '\n'},
                                                    {'r', '\r'}, {'t', '\t'}};
        Require(at_ < line_.size(), "an escape without end");
        const char kind = line_[at_++];
        if (kind != 'u') {
            Require(kShort.count(kind) != 0, "an unknown escape");
            text += kShort.at(kind);
            return;
        }
        Require(line_.find_first_not_of("0123456789abcdefABCDEF", at_) >= at_ + 4, "a bad number");
        const auto code = static_cast<unsigned>(std::stoul(line_.substr(at_, 4), nullptr, 16));
        at_ += 4;
        if (code >= 0xDC80 && code <= 0xDCFF) {
            text += static_cast<char>(code & 0xFF);
            return;
        }
        Require(code < 0xD800 || code > 0xDFFF, "half a character");
        AppendUtf8(code, text);
    }

    const std::string& line_;
    std::size_t at_ = 0;
};

}  // namespace

std::map<std::string, std::string> ReadJsonObject(const std::string& line) {
    return Reader(line).Object();
}

}  // namespace cli
