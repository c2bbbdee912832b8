// The file filter's dialog: whatever is typed and clicked. Texts: what the user does; the first
// character says what, the rest with what.
#include <set>

#include "fuzz/fuzzing.h"
#include "platform/headless/headless_host.h"
#include "rules/file_filter.h"
#include "rules/filter_dialog.h"

using fuzzing::Require;
using Texts = std::vector<std::string>;
using Filter = std::pair<std::string, bool>;  // extensions, only mode

namespace {

struct Dialog {
    // Opens the dialog and does what the texts say, until it is closed. The filter afterwards.
    Filter Edit(const Texts& actions) {
        const Filter before = Current();
        bool accepted = false;
        host_.OnModal = [&](platform::Form& form) {
            for (const std::string& action : actions) {
                if (action.empty() || !host_.IsShown(form)) continue;
                Act(action[0], action.substr(1));
                accepted = action[0] == '!' && !host_.IsShown(form);
            }
        };
        dialog_.Edit(owner_);
        if (accepted) RequireSound();
        Require(accepted || Current() == before, "only OK changes the filter");
        return Current();
    }

    bool Pasted = false;  // at any time

  private:
    Filter Current() const { return {filter_.FilterExtensions, filter_.FilterOnlyMode}; }

    void Act(char what, const std::string& with) {
        if (what == 't') dialog_.TextAddto.Type(with);
        if (what == 'p') dialog_.TextAddto.Paste(with);
        Pasted = Pasted || what == 'p';
        if (what == '+') dialog_.Command1.Click();
        if (what == 's') dialog_.List1.Select(with.empty() ? -1 : with[0] - '0');
        if (what == '-') dialog_.Command2.Click();
        if (what == 'o') dialog_.OptionOnly.Click();
        if (what == 'x') dialog_.OptionExc.Click();
        if (what == '.') dialog_.Command3.Click();
        if (what == '!') dialog_.CommandOK.Click();
    }

    void RequireSound() const {
        const Texts& entries = dialog_.List1.Entries();
        std::string list;
        for (const std::string& entry : entries) {
            list += '/' + entry;
            Require(Pasted || entry.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789") ==
                                  std::string::npos,
                    "typed entries are lower-case letters and digits");
            Require(Pasted || entry.size() >= 10 ||
                        rules::PassesFileFilter(filter_, "x." + entry) == filter_.FilterOnlyMode,
                    "a listed extension counts as listed");
        }
        const std::set<std::string> different(entries.begin(), entries.end());
        Require(different.size() == entries.size() && !different.contains(""),
                "no entry twice, none empty");
        Require(list == filter_.FilterExtensions, "the filter is the list, slashes in front");
        Require(!list.empty() || !filter_.FilterOnlyMode, "only mode needs a list");
    }

    rules::FileFilter filter_;
    platform::Form owner_{"FormMain"};
    platform::headless::Host host_;
    platform::headless::Dialogs dialogs_;
    rules::FilterDialog dialog_{filter_, host_, dialogs_, "Varnel"};
};

}  // namespace

void fuzzing::Examine(const std::string& input) {
    Dialog dialog;
    const Filter first = dialog.Edit(fuzzing::Texts(input, 0));
    // A pasted entry that holds a slash is two of them from the second opening on.
    const Filter second = dialog.Edit({"!"});
    Require(dialog.Pasted || second == first, "opening and OK change nothing");
    Require(dialog.Edit({"!"}) == second, "opening and OK change nothing once more");
}
