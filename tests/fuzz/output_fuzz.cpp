// What is printed of file names of any bytes. Texts: two names, the second below the first.
#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "app/cli_rows.h"
#include "fuzz/fuzzing.h"

namespace {

using fuzzing::Require;

constexpr std::size_t kMostBytes = 2000;  // longer lines would be written out

// The characters of UTF-8; nothing when it is not valid.
std::optional<std::u32string> Characters(std::string_view text) {
    constexpr char32_t kLeast[] = {0, 0x80, 0x800, 0x10000};
    std::u32string characters;
    for (std::size_t at = 0; at < text.size();) {
        const auto first = static_cast<unsigned char>(text[at++]);
        const int following = first < 0x80 ? 0 : first < 0xE0 ? 1 : first < 0xF0 ? 2 : 3;
        if ((first >= 0x80 && first < 0xC0) || first >= 0xF8) return std::nullopt;
        char32_t character = following == 0 ? first : first & (0x3FU >> following);
        for (int i = 0; i < following; ++i) {
            if (at == text.size() || (text[at] & 0xC0) != 0x80) return std::nullopt;
            character = character << 6 | (text[at++] & 0x3F);
        }
        const bool surrogate = character >= 0xD800 && character < 0xE000;
        if (character < kLeast[following] || character > 0x10FFFF || surrogate) return std::nullopt;
        characters += character;
    }
    return characters;
}

void AppendUtf8(unsigned long character, std::string& bytes) {
    const auto put = [&bytes](unsigned long byte) { bytes += static_cast<char>(byte); };
    if (character < 0x80) return put(character);
    if (character < 0x800) {
        put(0xC0 | character >> 6);
    } else {
        put(0xE0 | character >> 12);
        put(0x80 | (character >> 6 & 0x3F));
    }
    put(0x80 | (character & 0x3F));
}

// Reads a JSON text back into bytes, a lone \udcXX as the byte XX.
std::string FromJson(std::string_view json) {
    Require(json.size() >= 2 && json.front() == '"' && json.back() == '"', "JSON between quotes");
    json = json.substr(1, json.size() - 2);
    std::string bytes;
    for (std::size_t at = 0; at < json.size(); ++at) {
        Require(json[at] != '"', "a quote in JSON is escaped");
        if (json[at] != '\\') {
            bytes += json[at];
            continue;
        }
        Require(++at < json.size(), "a JSON escape has an end");
        if (json[at] != 'u') {
            const std::size_t kind = std::string_view("\"\\nrt").find(json[at]);
            Require(kind != std::string_view::npos, "a JSON escape is known");
            bytes += "\"\\\n\r\t"[kind];
            continue;
        }
        const unsigned long number = std::stoul(std::string(json.substr(at + 1, 4)), nullptr, 16);
        const bool ofByte = number >= 0xDC80 && number <= 0xDCFF;
        Require(ofByte || number < 0xD800 || number > 0xDFFF, "no half of a character in JSON");
        if (ofByte)
            bytes += static_cast<char>(number & 0xFF);
        else
            AppendUtf8(number, bytes);
        at += 4;
    }
    return bytes;
}

std::string FromTsv(std::string_view field) {
    std::string bytes;
    for (std::size_t at = 0; at < field.size(); ++at) {
        if (field[at] != '\\') {
            bytes += field[at];
            continue;
        }
        Require(++at < field.size(), "a TSV escape has an end");
        const std::size_t kind = std::string_view("\\nrt").find(field[at]);
        Require(kind != std::string_view::npos, "a TSV escape is known");
        bytes += "\\\n\r\t"[kind];
    }
    return bytes;
}

// Control characters and the marks that turn the reading direction.
bool Steers(char32_t c) {
    return c < 0x20 || (c >= 0x7F && c < 0xA0) || c == 0x061C || c == 0x200E || c == 0x200F ||
           (c >= 0x2028 && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);
}

void RequireHarmless(std::string_view text) {
    const auto characters = Characters(text);
    Require(characters.has_value(), "UTF-8");
    Require(std::none_of(characters->begin(), characters->end(), Steers),
            "nothing steers a terminal");
}

std::string Row(const compare::CompareItem& item, app::RowFormat format, bool toTerminal) {
    app::CliOutput output;
    app::RowPrinter(output, format, toTerminal).Print(item, "Copy -->");
    std::string row;
    row.swap(output.Pending());
    Require(row.ends_with('\n'), "a row ends its line");
    row.pop_back();
    return row;
}

void RequireSoundRows(const compare::CompareItem& item) {
    RequireHarmless(Row(item, app::RowFormat::Json, false));
    const std::string tsv = Row(item, app::RowFormat::Tsv, false);
    Require(std::count(tsv.begin(), tsv.end(), '\t') == 7 && tsv.find('\n') == std::string::npos,
            "a TSV row is one line of eight fields");
    std::string terminalTsv = Row(item, app::RowFormat::Tsv, true);
    std::erase(terminalTsv, '\t');
    RequireHarmless(terminalTsv);
    Require(Row(item, app::RowFormat::Text, false) == "Copy -->      " + item.RelativePath(),
            "a text row ends in the relative path, byte for byte");
    RequireHarmless(Row(item, app::RowFormat::Text, true));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input = fuzzing::Bytes(data, std::min(size, kMostBytes));
    std::string json;
    app::AppendJsonText(input, json);
    RequireHarmless(json);
    Require(FromJson(json) == input, "JSON is read back byte for byte");

    std::string tsv;
    app::AppendTsvField(input, tsv);
    Require(tsv.find_first_of("\t\n\r") == std::string::npos, "a TSV field holds no separator");
    Require(FromTsv(tsv) == input, "TSV is read back byte for byte");

    const std::string shown = app::TerminalText(input);
    RequireHarmless(shown);
    Require(app::TerminalText(shown) == shown, "what a terminal may get stays as it is");

    const std::vector<std::string> texts = fuzzing::Texts(input);
    const std::string folderName = fuzzing::TextAt(texts, 0);
    const std::string name = fuzzing::TextAt(texts, 1);
    const compare::FolderPair top{nullptr, "/1/", "/2/"};
    const compare::FolderPair folder{&top, folderName, folderName};
    compare::CompareItem item;
    item.Folder = &folder;
    item.Name = name.c_str();
    item.NameLength = static_cast<std::uint16_t>(name.size());
    item.Code = compare::code::kCopyRight;
    RequireSoundRows(item);
    return 0;
}
