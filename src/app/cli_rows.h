// How the command line program writes rows: text, tsv or JSON lines.
#pragma once

#include <string>
#include <string_view>

#include "app/cli_options.h"
#include "compare/compare_table.h"

namespace app {

// Collects output and writes it to standard output in large pieces. A write that fails is
// remembered; nothing more is written then.
class CliOutput {
  public:
    ~CliOutput() { Flush(); }
    std::string& Pending() { return pending_; }
    void FlushIfLarge();
    // False when anything could not be written.
    bool Flush();

  private:
    std::string pending_;
    bool failed_ = false;
};

// Prints the rows of a list as one view shows them.
class RowPrinter {
  public:
    // `toTerminal`: control characters are shown escaped.
    RowPrinter(CliOutput& output, RowFormat format, bool toTerminal)
        : output_(output), format_(format), toTerminal_(toTerminal) {}

    // The line that names the fields, where the format has one.
    void PrintHeader();
    void Print(const compare::CompareItem& item, std::string_view direction);

  private:
    void PrintText(const compare::CompareItem& item, std::string_view direction);
    void PrintTsv(const compare::CompareItem& item, std::string_view direction);
    void PrintJson(const compare::CompareItem& item, std::string_view direction);

    CliOutput& output_;
    RowFormat format_;
    bool toTerminal_;
    std::string scratch_;
};

// A tab, line feed, carriage return or backslash is written \t, \n, \r, \\.
void AppendTsvField(std::string_view field, std::string& text);

// Between quotation marks. Controls and marks that turn the reading direction are written \uXXXX, a
// byte that is not valid UTF-8 \udcXX.
void AppendJsonText(std::string_view value, std::string& text);

// Control characters, bytes that are no UTF-8 and marks that turn the reading direction as \xXX,
// so that no file name can steer a terminal.
std::string TerminalText(std::string_view text);

}  // namespace app
