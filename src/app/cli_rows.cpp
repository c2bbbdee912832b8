#include "app/cli_rows.h"

#include <cstdint>

#include "platform/console.h"

namespace app {

namespace {

constexpr std::size_t kLargeOutput = 64 * 1024;  // stays in the cache
constexpr std::size_t kDirectionWidth = 13;
constexpr char kHexDigits[] = "0123456789abcdef";

bool IsContinuation(unsigned char byte) {
    return (byte & 0xC0) == 0x80;
}

// The length of the valid UTF-8 character of two bytes or more at the front; 0 when there is none.
std::size_t LongCharacter(std::string_view text) {
    const auto byte = [text](std::size_t i) {
        return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U;
    };
    const unsigned first = byte(0);
    const unsigned second = byte(1);
    if (first >= 0xC2 && first <= 0xDF)
        return IsContinuation(text.size() > 1 ? text[1] : 0) ? 2 : 0;
    if (first >= 0xE0 && first <= 0xEF) {
        const unsigned low = first == 0xE0 ? 0xA0 : 0x80;
        const unsigned high = first == 0xED ? 0x9F : 0xBF;  // no surrogates
        return second >= low && second <= high && (byte(2) & 0xC0) == 0x80 ? 3 : 0;
    }
    if (first >= 0xF0 && first <= 0xF4) {
        const unsigned low = first == 0xF0 ? 0x90 : 0x80;
        const unsigned high = first == 0xF4 ? 0x8F : 0xBF;
        return second >= low && second <= high && (byte(2) & 0xC0) == 0x80 &&
                       (byte(3) & 0xC0) == 0x80
                   ? 4
                   : 0;
    }
    return 0;
}

void AppendHex(unsigned char byte, std::string& text) {
    text += kHexDigits[byte >> 4];
    text += kHexDigits[byte & 15];
}

// The code of a character of two or three bytes.
unsigned CodeOf(std::string_view character) {
    const auto tail = [character](std::size_t i) {
        return static_cast<unsigned char>(character[i]) & 0x3FU;
    };
    const auto first = static_cast<unsigned char>(character[0]);
    return character.size() == 2 ? (first & 0x1FU) << 6 | tail(1)
                                 : (first & 0x0FU) << 12 | tail(1) << 6 | tail(2);
}

// The C1 controls and the marks that turn the reading direction.
bool SteersTerminal(std::string_view character) {
    if (character.size() != 2 && character.size() != 3) return false;
    const unsigned code = CodeOf(character);
    return code < 0xA0 || code == 0x061C || code == 0x200E || code == 0x200F ||
           (code >= 0x2028 && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
}

// What stands after the backslash; NUL for a character that needs none.
char TsvEscape(char c) {
    switch (c) {
        case '\t':
            return 't';
        case '\n':
            return 'n';
        case '\r':
            return 'r';
        case '\\':
            return '\\';
        default:
            return '\0';
    }
}

void AppendJsonEscape(unsigned code, std::string& text) {
    text += "\\u";
    AppendHex(static_cast<unsigned char>(code >> 8), text);
    AppendHex(static_cast<unsigned char>(code & 0xFF), text);
}

void AppendJsonControl(unsigned char byte, std::string& text) {
    switch (byte) {
        case '"':
            text += "\\\"";
            return;
        case '\\':
            text += "\\\\";
            return;
        case '\n':
            text += "\\n";
            return;
        case '\r':
            text += "\\r";
            return;
        case '\t':
            text += "\\t";
            return;
        default:
            AppendJsonEscape(byte, text);
    }
}

}  // namespace

void CliOutput::FlushIfLarge() {
    if (pending_.size() >= kLargeOutput) Flush();
}

bool CliOutput::Flush() {
    if (!failed_ && !pending_.empty())
        failed_ = !platform::WriteAll(platform::Stream::Output, pending_);
    pending_.clear();
    return !failed_;
}

void AppendTsvField(std::string_view field, std::string& text) {
    std::size_t plain = 0;  // where what needs no escape begins
    for (std::size_t at = 0; at < field.size(); ++at) {
        const char letter = TsvEscape(field[at]);
        if (letter == '\0') continue;
        text.append(field, plain, at - plain);
        text += '\\';
        text += letter;
        plain = at + 1;
    }
    text.append(field, plain, field.size() - plain);
}

void AppendJsonText(std::string_view value, std::string& text) {
    text += '"';
    std::size_t plain = 0;  // where what needs no escape begins
    std::size_t at = 0;
    while (at < value.size()) {
        const auto byte = static_cast<unsigned char>(value[at]);
        if (byte >= 0x20 && byte < 0x7F && byte != '"' && byte != '\\') {
            ++at;
            continue;
        }
        const std::size_t length = byte < 0x80 ? 0 : LongCharacter(value.substr(at));
        const std::string_view character = value.substr(at, length == 0 ? 1 : length);
        const bool steers = length != 0 && SteersTerminal(character);
        at += character.size();
        if (length != 0 && !steers) continue;
        text.append(value, plain, at - character.size() - plain);
        plain = at;
        if (steers)
            AppendJsonEscape(CodeOf(character), text);
        else if (byte >= 0x80)
            AppendJsonEscape(0xDC00U | byte, text);
        else
            AppendJsonControl(byte, text);
    }
    text.append(value, plain, at - plain);
    text += '"';
}

std::string TerminalText(std::string_view text) {
    std::string safe;
    for (std::size_t at = 0; at < text.size();) {
        const auto byte = static_cast<unsigned char>(text[at]);
        const std::size_t length = byte >= 0x20 && byte < 0x7F ? 1
                                   : byte < 0x80               ? 0
                                                               : LongCharacter(text.substr(at));
        const std::string_view character = text.substr(at, length == 0 ? 1 : length);
        if (length == 0 || SteersTerminal(character)) {
            for (const char c : character) {
                safe += "\\x";
                AppendHex(static_cast<unsigned char>(c), safe);
            }
        } else {
            safe += character;
        }
        at += character.size();
    }
    return safe;
}

void RowPrinter::PrintHeader() {
    if (format_ == RowFormat::Tsv)
        output_.Pending() += "code\tdirection\tpath1\tdate1\tsize1\tpath2\tdate2\tsize2\n";
}

void RowPrinter::Print(const compare::CompareItem& item, std::string_view direction) {
    switch (format_) {
        case RowFormat::Text:
            PrintText(item, direction);
            break;
        case RowFormat::Tsv:
            PrintTsv(item, direction);
            break;
        case RowFormat::Json:
            PrintJson(item, direction);
            break;
    }
    output_.Pending() += '\n';
    output_.FlushIfLarge();
}

void RowPrinter::PrintText(const compare::CompareItem& item, std::string_view direction) {
    std::string& text = output_.Pending();
    text += direction;
    text.append(kDirectionWidth - direction.size() + 1, ' ');
    if (toTerminal_)
        text += TerminalText(item.RelativePath());
    else
        item.AppendRelativePath(text);
}

void RowPrinter::PrintTsv(const compare::CompareItem& item, std::string_view direction) {
    std::string& text = output_.Pending();
    const auto putPath = [&](void (compare::CompareItem::*append)(std::string&) const) {
        scratch_.clear();
        (item.*append)(scratch_);
        text += '\t';
        const std::size_t start = text.size();
        AppendTsvField(scratch_, text);
        if (toTerminal_) {
            const std::string safe = TerminalText(std::string_view(text).substr(start));
            text.replace(start, std::string::npos, safe);
        }
    };
    text += std::to_string(item.Code);
    text += '\t';
    text += direction;
    putPath(&compare::CompareItem::AppendPath1);
    text += '\t';
    item.AppendDate1(text);
    text += '\t';
    item.AppendSize1(text);
    putPath(&compare::CompareItem::AppendPath2);
    text += '\t';
    item.AppendDate2(text);
    text += '\t';
    item.AppendSize2(text);
}

void RowPrinter::PrintJson(const compare::CompareItem& item, std::string_view direction) {
    std::string& text = output_.Pending();
    const auto putPath = [&](void (compare::CompareItem::*append)(std::string&) const) {
        scratch_.clear();
        (item.*append)(scratch_);
        AppendJsonText(scratch_, text);
    };
    text += "{\"code\": ";
    text += std::to_string(item.Code);
    text += ", \"direction\": \"";
    text += direction;
    text += "\", \"path1\": ";
    putPath(&compare::CompareItem::AppendPath1);
    text += ", \"date1\": \"";
    item.AppendDate1(text);
    text += "\", \"size1\": \"";
    item.AppendSize1(text);
    text += "\", \"path2\": ";
    putPath(&compare::CompareItem::AppendPath2);
    text += ", \"date2\": \"";
    item.AppendDate2(text);
    text += "\", \"size2\": \"";
    item.AppendSize2(text);
    text += "\"}";
}

}  // namespace app
