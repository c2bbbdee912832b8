// What is printed of file names of any bytes. Texts: two names, the second below the first.
#include <algorithm>
#include <clocale>

#include "app/cli_rows.h"
#include "fuzz/fuzzing.h"

using fuzzing::Require;

namespace {

// Control characters and the marks that turn the reading direction.
bool Steers(wchar_t c) {
    return c < 0x20 || (c >= 0x7F && c < 0xA0) || c == 0x061C || c == 0x200E || c == 0x200F ||
           (c >= 0x2028 && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);
}

void RequireHarmless(const std::string& text) {
    static const bool isUtf8 = std::setlocale(LC_CTYPE, "C.UTF-8") != nullptr;
    std::wstring characters(text.size() + 1, L'\0');
    const std::size_t count = std::mbstowcs(characters.data(), text.c_str(), characters.size());
    Require(isUtf8 && count <= text.size(), "UTF-8");
    Require(std::none_of(characters.begin(), characters.begin() + count, Steers),
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

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t kMostBytes = 2000;  // longer lines would be written out
    const std::vector<std::string> texts = fuzzing::Texts(data, std::min(size, kMostBytes), 2);
    const compare::FolderPair top{nullptr, "/1/", "/2/"};
    const compare::FolderPair folder{&top, texts[0], texts[0]};
    compare::CompareItem item;
    item.Folder = &folder;
    item.Name = texts[1].c_str();
    item.NameLength = static_cast<std::uint16_t>(texts[1].size());
    item.Code = compare::code::kCopyRight;

    Require(Row(item, app::RowFormat::Text, false) == "Copy -->      " + item.RelativePath(),
            "a text row ends in the relative path, byte for byte");
    RequireHarmless(Row(item, app::RowFormat::Text, true));
    RequireHarmless(Row(item, app::RowFormat::Json, false));
    std::string tsv = Row(item, app::RowFormat::Tsv, false);
    Require(std::count(tsv.begin(), tsv.end(), '\t') == 7 && tsv.find('\n') == std::string::npos,
            "a TSV row is one line of eight fields");
    tsv = Row(item, app::RowFormat::Tsv, true);
    std::erase(tsv, '\t');
    RequireHarmless(tsv);
    const std::string shown = app::TerminalText(texts[0]);
    Require(app::TerminalText(shown) == shown, "what a terminal may get stays as it is");
    return 0;
}
